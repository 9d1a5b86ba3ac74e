// Attributes of references that are turned, enlarged and mirrored: they are placed as their definition is in the block,
// and move with the reference afterwards. Letters are never mirrored; a text keeps its anchor.
#include <cmath>
#include <numbers>
#include <string_view>

#include "tests/curves/aide.h"

using namespace kaveltest;

namespace {

constexpr double kPi = std::numbers::pi;

AcGePoint3d centreOf(const AcDbEntity& entity) {
  AcDbExtents box;
  EXPECT_EQ(entity.getGeomExtents(box), Acad::eOk);
  return box.minPoint() + (box.maxPoint() - box.minPoint()) * 0.5;
}

AcGeVector3d sizeOf(const AcDbEntity& entity) {
  AcDbExtents box;
  EXPECT_EQ(entity.getGeomExtents(box), Acad::eOk);
  return box.maxPoint() - box.minPoint();
}

AcGeMatrix3d mirror(bool x) {
  AcGeMatrix3d m;
  m(x ? 0 : 1, x ? 0 : 1) = -1;
  return m;
}

struct Attributes : Host {
  Attributes() {
    session.eval(
        "(progn (entmake '((0 . \"BLOCK\") (2 . \"REGARD\") (70 . 2) (10 1. 1. 0.)))"
        " (entmake '((0 . \"CIRCLE\") (10 1. 1. 0.) (40 . 1.))) (entmake '((0 . \"ENDBLK\"))))");
  }
  // A definition in the alignment, at (3, 4), turned.
  static std::unique_ptr<AcDbAttributeDefinition> definition(int horizontal, int vertical, double turned) {
    auto d = std::make_unique<AcDbAttributeDefinition>();
    d->setTag(L"NUM");
    d->setTextString(L"HLH");
    d->setHeight(2);
    d->setRotation(turned);
    d->setHorizontalMode(static_cast<AcDb::TextHorzMode>(horizontal));
    d->setVerticalMode(static_cast<AcDb::TextVertMode>(vertical));
    d->setPosition({3, 4, 0});
    d->setAlignmentPoint({3, 4, 0});
    return d;
  }
  AcDbObjectId reference(const std::string& look) {
    return made("(entmake '((0 . \"INSERT\") (2 . \"REGARD\") (10 20. 10. 0.) " + look + "))");
  }
};

const char* const kReferences[] = {"",
                                   "(50 . 1.5707963267948966)",
                                   "(50 . 0.7)",
                                   "(41 . 3.) (42 . 3.) (43 . 3.)",
                                   "(41 . -1.)",
                                   "(42 . -1.)",
                                   "(41 . -2.) (42 . -2.) (43 . 2.) (50 . 0.3)",
                                   "(41 . -1.) (50 . 1.2)",
                                   "(210 0. 0. -1.)",
                                   "(210 0. 0. -1.) (50 . 2.)"};

TEST_F(Attributes, TakeTheirPlaceThroughTheBlock) {
  for (const char* look : kReferences)
    for (const double turned : {0.0, 0.5, kPi / 2})
      for (int horizontal : {0, 1, 2, 4})
        for (int vertical = 0; vertical <= (horizontal == 4 ? 0 : 3); ++vertical) {
          SCOPED_TRACE(std::string(look) + " " + std::to_string(horizontal) + std::to_string(vertical) + " " +
                       std::to_string(turned));
          const auto d = definition(horizontal, vertical, turned);
          const AcDbObjectPointer<AcDbBlockReference> block(reference(look), AcDb::kForWrite);
          const AcGeMatrix3d m = block->blockTransform();
          auto* attribute = new AcDbAttribute;
          ASSERT_EQ(attribute->setAttributeFromBlock(d.get(), m), Acad::eOk);
          ASSERT_EQ(block->appendAttribute(attribute), Acad::eOk);
          const double enlarged = std::abs((m * AcGeVector3d(1, 0, 0)).length());
          EXPECT_NEAR(attribute->height(), 2 * enlarged, 1e-9);
          EXPECT_LT(attribute->alignmentPoint().distanceTo(m * d->alignmentPoint()), 1e-9);
          if (const std::string_view plain(look); plain.starts_with("(4") && plain.find("(50") == plain.npos) {
            EXPECT_GT(std::cos(attribute->rotation()), -1e-9);  // mirrored or enlarged only: still to be read
          }
          // Texts centred both ways stay centred on their point, even when mirrored.
          if ((horizontal == 1 && vertical == 2) || horizontal == 4) {
            EXPECT_LT(centreOf(*attribute).distanceTo(m * centreOf(*d)), 1e-6);
          }
          attribute->close();
        }
}

// When the reference is moved later the attribute moves with it, and changes its size only with the scale.
TEST_F(Attributes, GoWithTheirReference) {
  const struct {
    const char* name;
    AcGeMatrix3d matrix;
    double scale;
  } changes[] = {{"move", AcGeMatrix3d::translation({5, -3, 0}), 1},
                 {"quarter turn", AcGeMatrix3d::rotation(kPi / 2, {0, 0, 1}, {1, 2, 0}), 1},
                 {"double", AcGeMatrix3d::scaling(2, {4, 4, 0}), 2},
                 {"mirror", mirror(true), 1},
                 {"mirror upwards", mirror(false), 1},
                 {"mirror and turn", AcGeMatrix3d::rotation(kPi / 2, {0, 0, 1}, {1, 2, 0}) * mirror(true), 1}};
  for (const auto& change : changes)
    for (const auto& [horizontal, vertical] :
         {std::pair(0, 0), std::pair(1, 2), std::pair(4, 0), std::pair(2, 3), std::pair(1, 0)}) {
      SCOPED_TRACE(std::string(change.name) + " " + std::to_string(horizontal) + std::to_string(vertical));
      const AcDbObjectPointer<AcDbBlockReference> block(reference(""), AcDb::kForWrite);
      auto* attribute = new AcDbAttribute;
      ASSERT_EQ(attribute->setAttributeFromBlock(definition(horizontal, vertical, 0).get(), block->blockTransform()),
                Acad::eOk);
      ASSERT_EQ(block->appendAttribute(attribute), Acad::eOk);
      const AcDbObjectId id = attribute->objectId();
      attribute->close();
      const AcGePoint3d anchor = AcDbObjectPointer<AcDbAttribute>(id)->alignmentPoint(),
                        centre = centreOf(*AcDbEntityPointer(id));
      const AcGeVector3d size = sizeOf(*AcDbEntityPointer(id));
      const AcGeMatrix3d before = block->blockTransform();
      ASSERT_EQ(block->transformBy(change.matrix), Acad::eOk);
      // Each point of the block itself has been moved in the same way.
      for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(3, 0, 0), AcGePoint3d(0, 3, 0)})
        EXPECT_LT((block->blockTransform() * p).distanceTo(change.matrix * (before * p)), 1e-9);
      const AcDbObjectPointer<AcDbAttribute> after(id);
      EXPECT_LT(after->alignmentPoint().distanceTo(change.matrix * anchor), 1e-9);
      if (std::string_view(change.name).starts_with("mirror")) {
        EXPECT_GT(std::cos(after->rotation()), -1e-9);
      }
      const AcGeVector3d now = sizeOf(*after);
      EXPECT_NEAR(std::max(now.x, now.y), std::max(size.x, size.y) * change.scale, 1e-6);
      if ((horizontal == 1 && vertical == 2) || horizontal == 4) {
        EXPECT_LT(centreOf(*after).distanceTo(change.matrix * centre), 1e-6);
      }
    }
}

// A text between two points lies between their images, and can be read there.
TEST_F(Attributes, TextsBetweenTwoPointsAreMirroredWithThem) {
  for (const char* mode : {"3", "5"})
    for (const bool x : {true, false}) {
      const AcDbObjectPointer<AcDbText> text(
          made(std::string("(entmake '((0 . \"TEXT\") (10 1. 1. 0.) (11 11. 1. 0.) (40 . 2.) (1 . \"HLH\") (72 . ") +
               mode + ")))"),
          AcDb::kForWrite);
      ASSERT_EQ(text->adjustAlignment(), Acad::eOk);
      const AcGePoint3d start = text->position(), end = text->alignmentPoint();
      const AcGeVector3d size = sizeOf(*text);
      ASSERT_EQ(text->transformBy(mirror(x)), Acad::eOk);
      EXPECT_LT(text->position().distanceTo(mirror(x) * (x ? end : start)), 1e-9) << mode << x;
      EXPECT_LT(text->alignmentPoint().distanceTo(mirror(x) * (x ? start : end)), 1e-9) << mode << x;
      EXPECT_NEAR(std::cos(text->rotation()), 1, 1e-9);
      EXPECT_NEAR(sizeOf(*text).x, size.x, 1e-9);
      EXPECT_NEAR(centreOf(*text).x, x ? -6 : 6, 1e-9);  // the ink begins at the one point and ends at the other
    }
}

}  // namespace
