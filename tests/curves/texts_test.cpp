// Extents of texts and paragraphs in planes of their own, and of texts fitted between two points.
#include <cmath>

#include "tests/curves/aide.h"

namespace kaveltest {

class Texts : public Host {
 protected:
  AcDbExtents box(const std::string& lisp) {
    const AcDbEntityPointer entity(made("(entmake (append '((0 . \"TEXT\")) '(" + lisp + ")))"));
    return boxOf(entity);
  }
  AcDbExtents paragraphBox(const std::string& lisp) {
    const AcDbEntityPointer entity(
        made("(entmake (append '((0 . \"MTEXT\") (100 . \"AcDbEntity\") (100 . \"AcDbMText\")"
             " (40 . 2.) (71 . 1) (1 . \"Rue du Moulin\")) '(" +
             lisp + ")))"));
    return boxOf(entity);
  }
  static AcDbExtents boxOf(const AcDbEntityPointer& entity) {
    AcDbExtents extents;
    EXPECT_EQ(entity->getGeomExtents(extents), Acad::eOk);
    return extents;
  }
  static void expectBox(const AcDbExtents& box, const AcGePoint3d& low, const AcGePoint3d& high, const char* what) {
    EXPECT_LT(box.minPoint().distanceTo(low), 1e-9)
        << what << ' ' << box.minPoint().x << ' ' << box.minPoint().y << ' ' << box.minPoint().z;
    EXPECT_LT(box.maxPoint().distanceTo(high), 1e-9)
        << what << ' ' << box.maxPoint().x << ' ' << box.maxPoint().y << ' ' << box.maxPoint().z;
  }
};

// From below a text runs towards smaller x; upright in the plane of y and z it runs along y. A TEXT has its place in its
// plane, a paragraph in the world.
TEST_F(Texts, LieInTheirPlanes) {
  const AcDbExtents flat = box("(10 0. 0. 0.) (40 . 2.) (1 . \"HLH\")"), block = paragraphBox("(10 0. 0. 0.)");
  const AcGePoint3d &a = flat.minPoint(), &b = flat.maxPoint(), &c = block.minPoint(), &d = block.maxPoint();
  expectBox(box("(10 5. 3. -4.) (40 . 2.) (1 . \"HLH\") (210 0. 0. -1.)"), {-5 - b.x, 3 + a.y, 4},
            {-5 - a.x, 3 + b.y, 4}, "text from below");
  expectBox(box("(10 5. 3. 7.) (40 . 2.) (1 . \"HLH\") (210 1. 0. 0.)"), {7, 5 + a.x, 3 + a.y}, {7, 5 + b.x, 3 + b.y},
            "upright text");
  expectBox(paragraphBox("(10 5. 3. 4.) (210 0. 0. -1.)"), {5 - d.x, 3 + c.y, 4}, {5 - c.x, 3 + d.y, 4},
            "paragraph from below");
  expectBox(paragraphBox("(10 7. 5. 3.) (210 1. 0. 0.)"), {7, 5 + c.x, 3 + c.y}, {7, 5 + d.x, 3 + d.y},
            "upright paragraph");
  // The direction is the world's: upwards in that plane, so that the lines lie towards greater y.
  expectBox(paragraphBox("(10 7. 5. 3.) (11 0. 0. 1.) (210 1. 0. 0.)"), {7, 5 - d.y, 3 + c.x}, {7, 5 - c.y, 3 + d.x},
            "paragraph that runs upwards");
}

// A matrix changes a paragraph's box as it changes the paragraph.
TEST_F(Texts, ParagraphsTurnOutOfTheirPlane) {
  const AcDbExtents before = paragraphBox("(10 3. 1. 2.) (50 . 30.)");
  const AcGeMatrix3d upright = AcGeMatrix3d::rotation(std::acos(0.0), {1, 0, 0});
  const AcDbEntityPointer entity(made("(princ)"), AcDb::kForWrite);
  ASSERT_EQ(entity->transformBy(upright), Acad::eOk);
  AcDbExtents expected = before;
  expected.transformBy(upright);
  expectBox(boxOf(entity), expected.minPoint(), expected.maxPoint(), "upright");
  ASSERT_EQ(entity->transformBy(upright.inverse()), Acad::eOk);
  expectBox(boxOf(entity), before.minPoint(), before.maxPoint(), "and back");
}

// Fitted texts keep their height, aligned ones their proportions; the stored sizes are another program's.
TEST_F(Texts, FillTheWayBetweenTwoPoints) {
  const AcDbExtents plain = box("(10 0. 0. 0.) (40 . 2.) (1 . \"HLH\")");
  const double ratio = 10 / (plain.maxPoint().x - plain.minPoint().x);
  for (const char* mirrored : {"0", "2"}) {
    const std::string points =
        "(10 1. 1. 0.) (11 11. 1. 0.) (40 . 2.) (41 . 1.) (1 . \"HLH\") (71 . " + std::string(mirrored) + ") (72 . ";
    expectBox(box(points + "5)"), {1, 1 + plain.minPoint().y, 0}, {11, 1 + plain.maxPoint().y, 0}, "fitted");
    expectBox(box(points + "3)"), {1, 1 + plain.minPoint().y * ratio, 0}, {11, 1 + plain.maxPoint().y * ratio, 0},
              "aligned");
  }
  const AcDbExtents up = box("(10 1. 1. 0.) (11 1. 11. 0.) (40 . 2.) (1 . \"HLH\") (72 . 5)");
  expectBox(up, {1 - plain.maxPoint().y, 1, 0}, {1 - plain.minPoint().y, 11, 0}, "upwards");
}

}  // namespace kaveltest
