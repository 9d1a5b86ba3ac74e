// Texts in a drawing: justification, mirroring, attributes, paragraphs. Their place is checked by their ink.
#include <gtest/gtest.h>

#include <cmath>

#include "drawing.h"

namespace atelier::render {
namespace {

Box inkOf(const std::string& entity, const Records& styles = {}) {
  return sceneOf({.styles = styles, .entities = {entity}}).bounds();
}

TEST(SceneText, JustificationHoldsItsPoint) {
  // HH is 2 high and as wide as measured; the point is (100, 50).
  const fonts::Font font({});
  const Box ink = font.extents("HH", 2).ink;
  const struct {
    int horizontal, vertical;
    double left, base;
  } rows[] = {{0, 0, 0, 0},  {1, 0, -0.5, 0}, {2, 0, -1, 0},    {4, 0, -0.5, -1}, {0, 1, 0, 2.0 / 3},
              {0, 2, 0, -1}, {0, 3, 0, -2},   {1, 3, -0.5, -2}, {2, 2, -1, -1},   {2, 1, -1, 2.0 / 3}};
  for (const auto& row : rows) {
    const Box box = inkOf("TEXT 8=0 10=100 20=50 40=2 1=HH 72=" + std::to_string(row.horizontal) +
                          " 11=100 21=50 73=" + std::to_string(row.vertical));
    // A left text starts at its pen; others are held by their ink.
    EXPECT_NEAR(box.xMin, 100 + (row.left == 0 ? ink.xMin : row.left * ink.width()), 1e-9)
        << row.horizontal << row.vertical;
    EXPECT_NEAR(box.yMin, 50 + row.base, 1e-9) << row.horizontal << row.vertical;
    EXPECT_NEAR(box.height(), 2, 1e-9);
  }
}

TEST(SceneText, AlignedAndFittedSpanTheirPoints) {
  const Box aligned = inkOf("TEXT 8=0 10=0 20=0 40=2 1=HH 72=3 11=20 21=0");
  EXPECT_NEAR(aligned.width(), 20, 1e-6);
  EXPECT_NE(std::round(aligned.height()), 2);
  const Box fitted = inkOf("TEXT 8=0 10=0 20=0 40=2 1=HH 72=5 11=0 21=20");
  EXPECT_NEAR(fitted.height(), 20, 1e-6) << "upwards";
  EXPECT_NEAR(fitted.width(), 2, 1e-6);
}

TEST(SceneText, TurnedMirroredAndSlanted) {
  const Box plain = inkOf("TEXT 8=0 10=0 20=0 40=2 1=HL");
  const Box turned = inkOf("TEXT 8=0 10=0 20=0 40=2 50=90 1=HL");
  EXPECT_NEAR(turned.xMin, -plain.yMax, 1e-9);
  EXPECT_NEAR(turned.yMax, plain.xMax, 1e-9);
  EXPECT_NEAR(inkOf("TEXT 8=0 10=0 20=0 40=2 71=2 1=HL").xMin, -plain.xMax, 1e-9) << "backwards";
  EXPECT_NEAR(inkOf("TEXT 8=0 10=0 20=0 40=2 71=4 1=HL").yMin, -plain.yMax, 1e-9) << "upside down";
  EXPECT_NEAR(inkOf("TEXT 8=0 10=0 20=0 40=2 41=0.5 1=HL").xMax, plain.xMax / 2, 1e-9) << "width factor";
  EXPECT_GT(inkOf("TEXT 8=0 10=0 20=0 40=2 51=20 1=HL").xMax, plain.xMax + 0.1) << "oblique";
}

TEST(SceneText, StyleGivesTheFont) {
  const Records styles{"2=SERIF 70=0 40=0 41=1 50=0 71=0 42=2 3=DejaVuSerif.ttf 4=",
                       "2=FAMILLE 70=0 40=0 41=1 50=0 71=0 42=2 3= 4= 1001=ACAD 1000=|DejaVu Serif| 1071=0"};
  const double serif = fonts::Font({.file = "DejaVuSerif.ttf"}).extents("Cote", 2).ink.width();
  EXPECT_NEAR(inkOf("TEXT 8=0 10=0 20=0 40=2 1=Cote 7=SERIF", styles).width(), serif, 1e-9);
  EXPECT_NEAR(inkOf("TEXT 8=0 10=0 20=0 40=2 1=Cote 7=FAMILLE", styles).width(), serif, 1e-9);
}

TEST(SceneText, ParagraphsJoinTheirPiecesAndTurn) {
  const Box level = inkOf("MTEXT 8=0 10=10 20=10 40=2 41=0 71=1 3=HH 1=HH");
  EXPECT_NEAR(level.width(), fonts::Font({}).extents("HHHH", 2).ink.width(), 1e-9);
  EXPECT_NEAR(level.yMax, 10, 1e-9);
  const Box byAngle = inkOf("MTEXT 8=0 10=10 20=10 40=2 41=0 71=1 1=HHHH 50=90");
  const Box byDirection = inkOf("MTEXT 8=0 10=10 20=10 40=2 41=0 71=1 1=HHHH 11=0 21=1");
  EXPECT_NEAR(byAngle.height(), level.width(), 1e-9);
  EXPECT_NEAR(byAngle.xMin, 10, 1e-9);
  EXPECT_NEAR(byDirection.yMax, byAngle.yMax, 1e-9);
}

TEST(SceneText, ParagraphColoursAndMask) {
  const DisplayList list =
      sceneOf({.entities = {"MTEXT 8=0 62=5 10=0 20=0 40=2 41=0 71=1 1=A{\\C1;B}\\C256;C 90=2 45=1.5"}});
  const auto runs = shapes<GlyphRun>(list);
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[0]->colour, (Colour{0, 0, 255}));
  EXPECT_EQ(runs[1]->colour, (Colour{255, 0, 0}));
  EXPECT_EQ(runs[2]->colour, (Colour{0, 0, 255}));
  ASSERT_TRUE(std::holds_alternative<Fill>(list.items()[0].shape)) << "the mask lies under the text";
  EXPECT_EQ(std::get<Fill>(list.items()[0].shape).colour, kBackground);
}

TEST(SceneText, AttributesShowTheirValueDefinitionsTheirTag) {
  TestDrawing d;
  d.blocks = {"BLOCK 8=0 2=REGARD 70=2 10=0 20=0", "ATTDEF 8=0 10=0 20=0 40=1 1=defaut 3=question 2=NOM 70=0",
              "ATTDEF 8=0 10=0 20=5 40=1 1=fixe 3=question 2=CTE 70=2", "ENDBLK 8=0"};
  d.entities = {"INSERT 8=0 66=1 2=REGARD 10=10 20=10", "ATTRIB 8=0 10=10 20=20 40=1 1=R12 2=NOM 70=0",
                "ATTRIB 8=0 10=10 20=30 40=1 1=secret 2=X 70=1", "SEQEND 8=0"};
  const DisplayList list = sceneOf(d);
  const auto runs = shapes<GlyphRun>(list);
  ASSERT_EQ(runs.size(), 2u) << "the constant definition and the visible attribute";
  EXPECT_EQ(runs[0]->line.glyphs.size(), 4u);
  EXPECT_NEAR(list.items()[0].box.yMin, 15, 0.1);
  EXPECT_EQ(runs[1]->line.glyphs.size(), 3u);
  EXPECT_NEAR(list.items()[1].box.yMin, 20, 0.1);
  const DisplayList alone = sceneOf({.entities = {"ATTDEF 8=0 10=0 20=0 40=1 1=defaut 3=question 2=NOM 70=0"}});
  EXPECT_EQ(shapes<GlyphRun>(alone).at(0)->line.glyphs.size(), 3u);
}

}  // namespace
}  // namespace atelier::render
