// The extents of an object are the box of what is drawn: texts in every alignment, slant, width, turn and plane, and
// attributes of every kind of reference. Two rooms work these out separately; where they differ, one is wrong.
#include <gtest/gtest.h>

#include <cmath>

#include "drawing.h"
#include "hote/dbents.h"

namespace atelier::render {
namespace {

// The extents of the entities of the model space, taken together.
AcDbExtents said(AcDbDatabase& database) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  AcDbExtents all;
  for (AcDbStub* stub : *imp.modelSpace()->children) {
    const AcDbEntityPointer entity(idOf(stub));
    AcDbExtents box;
    if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(box) == Acad::eOk) all.addExt(box);
  }
  return all;
}

void expectSame(const TestDrawing& drawing, double slack, const std::string& name) {
  const auto database = openDrawing(drawing);
  const AcDbExtents box = said(*database);
  const Box ink = drawScene(*database, {}).bounds();
  EXPECT_NEAR(box.minPoint().x, ink.xMin, slack) << name;
  EXPECT_NEAR(box.minPoint().y, ink.yMin, slack) << name;
  EXPECT_NEAR(box.maxPoint().x, ink.xMax, slack) << name;
  EXPECT_NEAR(box.maxPoint().y, ink.yMax, slack) << name;
}

std::string n(double v) { return std::to_string(v); }

// A text as a host stores it after placing it from its alignment point; made with entmake.
std::string placed(const TestDrawing& drawing) {
  const auto database = openDrawing(drawing);
  AcDbImpDatabase& imp = AcDbImpDatabase::of(database.get());
  const AcDbObjectPointer<AcDbText> text(idOf(imp.modelSpace()->children->front()), AcDb::kForWrite);
  EXPECT_EQ(text->adjustAlignment(), Acad::eOk);
  std::string out = "TEXT";
  for (const Group& group : AcDbImpObject::of(text.object()).record.groups)
    if (const int code = group.code(); code != 0 && code != 5 && code != 100 && code != 330) {
      if (code == 1 || code == 7 || code == 8) out += " " + std::to_string(code) + "=|" + group.text() + "|";
      else if (code >= 10 && code < 60) out += " " + std::to_string(code) + "=" + n(group.real());
      else if (code >= 60 && code < 80) out += " " + std::to_string(code) + "=" + std::to_string(group.integer());
      else if (code >= 210 && code < 240) out += " " + std::to_string(code) + "=" + n(group.real());
    }
  return out;
}

TEST(TextExtents, AreThoseOfTheInkInEveryAlignment) {
  const std::string looks[] = {"",     "41=0.5", "41=2 50=90",        "50=180", "50=270 41=1.3", "71=2",
                               "71=4", "71=6",   "210=0 220=0 230=-1"};
  for (const std::string& look : looks)
    for (int horizontal = 0; horizontal <= 5; ++horizontal)
      for (int vertical = 0; vertical <= (horizontal < 3 ? 3 : 0); ++vertical) {
        const bool between = horizontal == 3 || horizontal == 5;
        const std::string record = "TEXT 8=0 10=100 20=50 40=2 1=HLH " + look + " 72=" + std::to_string(horizontal) +
                                   " 73=" + std::to_string(vertical) + " 11=" + n(between ? 130 : 100) + " 21=" + n(50);
        if (between && look.find("50=") != look.npos) continue;  // these lie along their points
        expectSame({.entities = {placed({.entities = {record}})}}, 2e-5, record);
      }
}

// A slanted or turned one has its box about the box of its letters: it holds the ink, with no more room than that.
TEST(TextExtents, HoldTheInkOfSlantedAndTurnedOnes) {
  constexpr double kCorner = 0.04;  // what is drawn is boxed glyph by glyph, with the corners of the slanted boxes
  for (const char* look : {"51=20", "51=-20", "51=20 50=30", "50=45", "51=15 41=0.7 50=200", "71=2 51=20", "71=4 51=20",
                           "50=30 210=0 220=0 230=-1"}) {
    const auto database = openDrawing({.entities = {"TEXT 8=0 10=100 20=50 40=2 1=HAH " + std::string(look)}});
    const AcDbExtents box = said(*database);
    const Box ink = drawScene(*database, {}).bounds();
    EXPECT_LE(box.minPoint().x, ink.xMin + kCorner) << look;
    EXPECT_LE(box.minPoint().y, ink.yMin + kCorner) << look;
    EXPECT_GE(box.maxPoint().x, ink.xMax - kCorner) << look;
    EXPECT_GE(box.maxPoint().y, ink.yMax - kCorner) << look;
    EXPECT_LT(box.maxPoint().x - box.minPoint().x, ink.width() + 2.1) << look;
    EXPECT_LT(box.maxPoint().y - box.minPoint().y, ink.height() + 2.1) << look;
  }
}

TEST(TextExtents, OfParagraphsAreThoseOfTheInk) {
  const char* texts[] = {"HLH", "HLH\\PLL", "un deux trois quatre cinq", "{\\H2x;H}H", "HH HH\\P\\PHH"};
  for (const char* text : texts)
    for (int attachment = 1; attachment <= 9; ++attachment)
      for (const char* look : {"41=0", "41=6", "41=12", "41=0 50=90", "41=6 50=180"}) {
        const std::string record = "MTEXT 8=0 10=10 20=20 40=1 " + std::string(look) +
                                   " 71=" + std::to_string(attachment) + " 1=|" + text + "|";
        const auto database = openDrawing({.entities = {record}});
        const AcDbExtents box = said(*database);
        const Box ink = drawScene(*database, {}).bounds();
        EXPECT_LE(box.minPoint().x, ink.xMin + 1e-6) << record;
        EXPECT_LE(box.minPoint().y, ink.yMin + 1e-6) << record;
        EXPECT_GE(box.maxPoint().x, ink.xMax - 1e-6) << record;
        EXPECT_GE(box.maxPoint().y, ink.yMax - 1e-6) << record;
      }
}

// Other kinds of drawing: places of arrays, planes, bulges; but no wide lines.
TEST(Extents, AreThoseOfTheInkForReferences) {
  TestDrawing d;
  d.blocks = {"BLOCK 8=0 2=B 70=0 10=1 20=1", "LINE 8=0 10=1 20=1 11=3 21=2",
              "LINE 8=0 10=3 20=2 11=3 21=1", "ENDBLK 8=0",
              "BLOCK 8=0 2=C 70=0 10=0 20=0", "INSERT 8=0 2=B 10=4 20=0 50=90 41=2",
              "POINT 8=0 10=-1 20=0",         "ENDBLK 8=0"};
  for (const char* name : {"B", "C"})
    for (const char* look : {"", "41=2 42=3", "41=-1", "42=-2 50=90", "50=180", "50=270 41=3 42=-1",
                             "210=0 220=0 230=-1", "210=0 220=0 230=-1 50=90 41=-1", "70=3 71=2 44=5 45=4",
                             "70=3 71=2 44=-5 45=4 50=90", "70=2 44=5 210=0 220=0 230=-1", "41=0"}) {
      d.entities = {"INSERT 8=0 2=" + std::string(name) + " 10=10 20=20 " + look};
      expectSame(d, 1e-9, d.entities[0]);
    }
}

TEST(Extents, AreThoseOfTheInkForCurves) {
  for (const char* record :
       {"ARC 8=0 10=1 20=2 40=3 50=30 51=200", "ARC 8=0 10=1 20=2 40=3 50=300 51=60",
        "ARC 8=0 10=1 20=2 40=3 50=30 51=200 210=0 220=0 230=-1", "CIRCLE 8=0 10=1 20=2 40=3 210=0 220=0 230=-1",
        "LWPOLYLINE 8=0 90=3 70=1 10=0 20=0 42=0.5 10=6 20=0 42=-1 10=6 20=5 42=2",
        "ELLIPSE 8=0 10=1 20=1 11=3 21=1 40=0.4 41=0.5 42=4",
        "ELLIPSE 8=0 10=1 20=1 11=3 21=1 40=0.4 41=5 42=7 210=0 220=0 230=-1",
        "ELLIPSE 8=0 10=1 20=1 11=3 21=1 40=0.4 41=0.5 42=6.78319", "ARC 8=0 10=1 20=2 40=3 50=0 51=360.0001",
        "SOLID 8=0 10=0 20=0 11=3 21=1 12=1 22=4 13=2 23=5",
        "SPLINE 8=0 70=8 71=2 72=6 73=3 74=0 40=0 40=0 40=0 40=1 40=1 40=1 10=0 20=0 10=5 20=8 10=10 20=0"})
    expectSame({.entities = {record}}, 1e-6, record);
}

}  // namespace
}  // namespace atelier::render
