// The spatial index compared with a walk over every entity: the same entities in the same order, before and after
// changes of all kinds to random drawings.
#include <algorithm>
#include <cmath>
#include <random>

#include "atelier/selecting/flat_path.h"
#include "atelier/selecting/pick.h"
#include "atelier/selecting/selections.h"
#include "tests/support/bare_host.h"

namespace kaveltest {
namespace {

using namespace atelier;
using Stubs = std::vector<AcDbStub*>;

class RandomDrawing : public DrawingTest, public testing::WithParamInterface<unsigned> {
 protected:
  std::mt19937 chance{GetParam()};
  double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(chance); }
  int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(chance); }
  std::string point() { return std::to_string(number(-50, 50)) + " " + std::to_string(number(-50, 50)) + " 0.0"; }
  std::string real(double low, double high) { return std::to_string(number(low, high)); }
  std::string group(const char* code, const std::string& value) {
    return std::string("(") + code + " . " + value + ")";
  }

  std::string geometry() {
    switch (whole(0, 9)) {
      case 0: return "(0 . \"CIRCLE\") (10 " + point() + ")" + group("40", real(0.1, 9));
      case 1:
        return "(0 . \"ARC\") (10 " + point() + ")" + group("40", real(0.1, 9)) + group("50", real(0, 6)) +
               group("51", real(0, 6));
      case 2:
        return "(0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 2) (70 . 1) (10 " + point() +
               ")" + group("42", real(-2, 2)) + "(10 " + point() + ")" + group("42", real(-2, 2));
      case 3: return "(0 . \"POINT\") (10 " + point() + ")";
      case 4:
        return "(0 . \"TEXT\") (10 " + point() + ") (1 . \"Regard\")" + group("40", real(0.2, 3)) +
               group("50", real(0, 6));
      case 5: return "(0 . \"RAY\") (100 . \"AcDbEntity\") (100 . \"AcDbRay\") (10 " + point() + ") (11 0.6 0.8 0.0)";
      case 6:
        return "(0 . \"SOLID\") (10 " + point() + ") (11 " + point() + ") (12 " + point() + ") (13 " + point() + ")";
      case 7:
        return "(0 . \"INSERT\") (2 . \"EXT\") (10 " + point() + ")" + group("41", real(0.2, 2)) +
               group("50", real(0, 6));
      case 8:
        return "(0 . \"INSERT\") (2 . \"INT\") (10 " + point() + ") (70 . 3) (71 . 2) (44 . 4.0) (45 . 5.0)" +
               group("50", real(0, 6));
      default: return "(0 . \"LINE\") (10 " + point() + ") (11 " + point() + ")";
    }
  }
  void draw(int count) {
    for (int i = 0; i < count; ++i) run("(entmake '(" + geometry() + "))");
  }

  void SetUp() override {
    run("(progn (entmake '((0 . \"BLOCK\") (2 . \"INT\") (70 . 0) (10 0. 0. 0.)))"
        " (entmake '((0 . \"LINE\") (10 0. 0. 0.) (11 3. 1. 0.))) (entmake '((0 . \"ENDBLK\")))"
        " (entmake '((0 . \"BLOCK\") (2 . \"EXT\") (70 . 0) (10 1. 0. 0.)))"
        " (entmake '((0 . \"CIRCLE\") (10 0. 0. 0.) (40 . 2.))) (entmake '((0 . \"INSERT\") (2 . \"INT\") (10 4. 0. "
        "0.)))"
        " (entmake '((0 . \"ENDBLK\")))"
        " (defun nth-of (n / e) (setq e (entnext)) (repeat n (if e (setq e (entnext e)))) e)"
        " (entmake '((0 . \"POLYLINE\") (66 . 1))) (entmake '((0 . \"VERTEX\") (10 0. 0. 0.)))"
        " (entmake '((0 . \"VERTEX\") (10 9. 9. 0.))) (entmake '((0 . \"SEQEND\"))))");
    draw(120);
  }

  // The names of the entities found, for readable failures.
  template <class STUBS>
  std::vector<std::string> names(const STUBS& stubs) {
    std::vector<std::string> list;
    for (const AcDbStub* stub : stubs)
      list.push_back(std::string(session.document().imp().typeName(*stub)) + " " + std::to_string(stub->handle));
    return list;
  }
  Stubs walked(const AcGePoint3d& a, const AcGePoint3d& b, bool crossing) {
    const AcGePoint3d corners[] = {a, {b.x, a.y, 0}, b, {a.x, b.y, 0}};
    Stubs found;
    const AcDbStub* space = session.document().database().currentSpaceId();
    for (auto it = space->children->rbegin(); it != space->children->rend(); ++it) {
      if ((*it)->is(AcDbStub::kErased)) continue;
      const auto strokes = strokesOf(*AcDbEntity::cast(&session.document().imp().object(**it)));
      if (crossing ? touchesPolygon(strokes, corners) : insidePolygon(strokes, corners)) found.push_back(*it);
    }
    return found;
  }
  // Blocks come after what stands for itself, and the inside of texts and areas is as far as half the pick box.
  AcDbStub* walkedPick(const AcGePoint3d& at) {
    const double radius = pickRadius(session.document());
    std::pair least{true, std::nextafter(radius, 2 * radius)};
    AcDbStub* nearest = nullptr;
    const AcDbStub* space = session.document().database().currentSpaceId();
    for (auto it = space->children->rbegin(); it != space->children->rend(); ++it) {
      if ((*it)->is(AcDbStub::kErased)) continue;
      const auto strokes = strokesOf(*AcDbEntity::cast(&session.document().imp().object(**it)));
      double distance = distanceTo(strokes, at);
      if (std::ranges::any_of(strokes, &Stroke::filled)) distance = std::max(distance, radius / 2);
      const bool block = session.document().imp().typeName(**it) == "INSERT";
      if (const std::pair key(block, distance); distance <= radius && key < least) least = key, nearest = *it;
    }
    return nearest;
  }
  void compare(const std::string& after) {
    for (int i = 0; i < 12; ++i) {
      const AcGePoint3d a(number(-60, 60), number(-60, 60), 0);
      const AcGePoint3d b = a + AcGeVector3d(number(1, 40), number(1, 40), 0);
      for (const bool crossing : {false, true})
        EXPECT_EQ(names(selectBox(session.document(), a, b, crossing, {})->list()), names(walked(a, b, crossing)))
            << after << ", window " << a.x << "," << a.y << " " << b.x << "," << b.y << " crossing " << crossing;
      AcDbStub* picked = pickAt(session.document(), a);
      EXPECT_EQ(picked, walkedPick(a)) << after << ", pick " << a.x << "," << a.y;
    }
  }
};

TEST_P(RandomDrawing, IsSearchedLikeAWalkOverAll) {
  session.document().view().height = 1000;  // a wide pick box
  compare("new");
  const std::string changes[] = {
      "(repeat 9 (entdel (nth-of " + std::to_string(whole(3, 100)) + ")))",
      "(progn (setq e (nth-of 40) d (entget e)) (if (assoc 10 d) (entmod (subst '(10 -48. 47. 0.) (assoc 10 d) d))))",
      "(command \"_MOVE\" \"_ALL\" \"\" '(0. 0. 0.) '(7. 3. 0.))",
      "(command \"_UNDO\" 1)",
      "(command \"_REDO\")",
      "(progn (setq d (entget (cdr (assoc -2 (tblsearch \"BLOCK\" \"INT\"))))) (entmod (subst '(11 20. 9. 0.) (assoc "
      "11 d) d)))",
      "(progn (setq d (entget (tblobjname \"STYLE\" \"STANDARD\"))) (entmod (subst '(41 . 3.0) (assoc 41 d) d)))",
      "(progn (setq e (entnext (entnext)) d (entget e)) (entmod (subst '(10 -40. -40. 0.) (assoc 10 d) d)))",
      "(command \"_ERASE\" \"_C\" '(-20. -20. 0.) '(0. 0. 0.) \"\")"};
  for (const std::string& change : changes) {
    run(change);
    compare(change);
    draw(3);
  }
  compare("all");
}

TEST_P(RandomDrawing, HasTheExtentsOfItsEntities) {
  run("(command \"_ERASE\" \"_C\" '(-20. -20. 0.) '(0. 0. 0.) \"\")");
  AcDbExtents walkedBox;
  const AcDbStub* space = session.document().database().currentSpaceId();
  for (AcDbStub* stub : *space->children) {
    AcDbExtents part;
    if (!stub->is(AcDbStub::kErased) &&
        AcDbEntity::cast(&session.document().imp().object(*stub))->getGeomExtents(part) == Acad::eOk)
      walkedBox.addExt(part);
  }
  const AcDbExtents box = session.document().spatialIndex().extents(space);
  EXPECT_EQ(box.minPoint(), walkedBox.minPoint());
  EXPECT_EQ(box.maxPoint(), walkedBox.maxPoint());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDrawing, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
}  // namespace kaveltest
