// Drawings as display lists: the place of each kind of entity in plan, and its look.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "atelier/render/sheets/plot.h"
#include "drawing.h"

namespace atelier::render {
namespace {

void expectBox(const Box& box, double x1, double y1, double x2, double y2, const std::string& what,
               double within = 1e-4) {
  EXPECT_NEAR(box.xMin, x1, within) << what;
  EXPECT_NEAR(box.yMin, y1, within) << what;
  EXPECT_NEAR(box.xMax, x2, within) << what;
  EXPECT_NEAR(box.yMax, y2, within) << what;
}

TEST(Scene, EntitiesLieWhereTheyAre) {
  const struct {
    const char* entity;
    double x1, y1, x2, y2;
  } rows[] = {
      {"LINE 8=0 10=1 20=2 30=9 11=4 21=6 31=0", 1, 2, 4, 6},
      {"CIRCLE 8=0 10=10 20=20 40=5", 5, 15, 15, 25},
      {"CIRCLE 8=0 10=-10 20=20 40=5 210=0 220=0 230=-1", 5, 15, 15, 25},
      {"ARC 8=0 10=0 20=0 40=2 50=0 51=90", 0, 0, 2, 2},
      {"ARC 8=0 10=0 20=0 40=2 50=270 51=90", 0, -2, 2, 2},
      {"ARC 8=0 10=0 20=0 40=2 50=0 51=90 210=0 220=0 230=-1", -2, 0, 0, 2},
      {"ELLIPSE 8=0 10=1 20=1 11=0 21=4 40=0.5 41=0 42=6.283185307179586", -1, -3, 3, 5},
      {"ELLIPSE 8=0 10=0 20=0 11=4 21=0 40=0.5 41=0 42=1.5707963267948966", 0, 0, 4, 2},
      {"ELLIPSE 8=0 10=0 20=0 11=4 21=0 40=0.5 41=0 42=6.283185308", -4, -2, 4, 2},
      {"ELLIPSE 8=0 10=0 20=0 11=4 21=0 40=0.5 41=1 42=7.28319", -4, -2, 4, 2},
      {"ARC 8=0 10=0 20=0 40=2 50=0 51=360.0001", -2, -2, 2, 2},
      {"SPLINE 8=0 70=8 71=3 72=8 73=4 40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 10=0 20=0 10=1 20=4 10=3 20=4 "
       "10=4 20=0",
       0, 0, 4, 3},
      {"POINT 8=0 10=3 20=4", 3, 4, 3, 4},
      {"SOLID 8=0 10=0 20=0 11=2 21=0 12=0 22=2 13=2 23=2", 0, 0, 2, 2},
      {"TRACE 8=0 10=0 20=0 11=2 21=0 12=0 22=2 13=2 23=2", 0, 0, 2, 2},
      {"3DFACE 8=0 10=0 20=0 30=5 11=2 21=0 31=5 12=2 22=2 32=0 13=0 23=2 33=0", 0, 0, 2, 2},
      {"LWPOLYLINE 8=0 90=2 70=0 10=0 20=0 42=1 10=4 20=0", 0, -2, 4, 0},
      {"LWPOLYLINE 8=0 90=2 70=0 43=2 10=0 20=0 10=4 20=0", 0, -1, 4, 1},
      {"LWPOLYLINE 8=0 90=3 70=1 10=0 20=0 10=4 20=0 10=4 20=3", 0, 0, 4, 3},
      {"LEADER 8=0 71=0 76=2 10=0 20=0 10=4 20=3", 0, 0, 4, 3},
  };
  for (const auto& row : rows) {
    const DisplayList list = sceneOf({.entities = {row.entity}});
    EXPECT_TRUE(list.warnings.empty()) << row.entity;
    expectBox(list.bounds(), row.x1, row.y1, row.x2, row.y2, row.entity);
  }
}

TEST(Scene, PolylinesWithVertexEntities) {
  const Records frame{"POLYLINE 8=0 66=1 70=5 10=0 20=0", "VERTEX 8=0 10=0 20=0 70=8", "VERTEX 8=0 10=50 20=50 70=16",
                      "VERTEX 8=0 10=4 20=0 70=8",        "VERTEX 8=0 10=4 20=3 70=8", "SEQEND 8=0"};
  expectBox(sceneOf({.entities = frame}).bounds(), 0, 0, 4, 3, "the frame of a spline fit is not drawn");
  const Records wide{"POLYLINE 8=0 66=1 70=0 40=2 41=2 10=0 20=0", "VERTEX 8=0 10=0 20=0", "VERTEX 8=0 10=4 20=0",
                     "SEQEND 8=0"};
  expectBox(sceneOf({.entities = wide}).bounds(), 0, -1, 4, 1, "widths come from the polyline");
  const Records space{"POLYLINE 8=0 66=1 70=8 10=0 20=0", "VERTEX 8=0 10=1 20=1 30=7 70=32",
                      "VERTEX 8=0 10=4 20=0 70=32", "SEQEND 8=0"};
  expectBox(sceneOf({.entities = space}).bounds(), 1, 0, 4, 1, "in space");
  const Records mesh{"POLYLINE 8=0 66=1 70=16 71=2 72=2", "VERTEX 8=0 10=0 20=0 70=64", "VERTEX 8=0 10=1 20=0 70=64",
                     "VERTEX 8=0 10=0 20=1 70=64",        "VERTEX 8=0 10=1 20=1 70=64", "SEQEND 8=0"};
  expectBox(sceneOf({.entities = mesh}).bounds(), 0, 0, 1, 1, "mesh");
  const Records faces{"POLYLINE 8=0 66=1 70=64 71=3 72=1", "VERTEX 8=0 10=0 20=0 70=192",
                      "VERTEX 8=0 10=2 20=0 70=192",       "VERTEX 8=0 10=2 20=2 70=192",
                      "VERTEX 8=0 70=128 71=1 72=2 73=-3", "SEQEND 8=0"};
  expectBox(sceneOf({.entities = faces}).bounds(), 0, 0, 2, 2, "faces");
}

// 10 of line, 3 of gap with a text at its end, 5 more of gap; the line is 40 long, the line type twice as large for the second.
TEST(Scene, LineTypesRepeatTheirTexts) {
  const TestDrawing drawing{
      .linetypes =
          {"2=GAZ 3=gaz 72=65 73=3 40=18 49=10 74=0 49=-3 74=2 75=0 340=0 46=2 50=90 44=-1 45=0.5 9=G 49=-5 74=0"},
      .entities = {"LINE 8=0 6=GAZ 10=100 20=0 11=140 21=0", "LINE 8=0 6=GAZ 48=2 10=0 20=100 11=0 21=140",
                   "CIRCLE 8=0 6=GAZ 10=0 20=0 40=2"}};
  const DisplayList list = sceneOf(drawing);
  EXPECT_TRUE(list.warnings.empty());
  const auto texts = shapes<GlyphRun>(list);
  ASSERT_EQ(texts.size(), 3u) << "two on the first line, one on the second, none on a circle shorter than the pattern";
  const Pt wanted[] = {{100 + 13 - 1, 0.5}, {100 + 31 - 1, 0.5}, {-1, 100 + 26 - 2}};
  const double turns[] = {90, 90, 180}, heights[] = {2, 2, 4};
  for (std::size_t i = 0; i < 3; ++i) {
    const Affine& map = texts[i]->map;
    EXPECT_NEAR(map.x0, wanted[i].x, 1e-9) << i;
    EXPECT_NEAR(map.y0, wanted[i].y, 1e-9) << i;
    EXPECT_NEAR(std::abs(std::atan2(map.yx, map.xx)) * 180 / M_PI, turns[i], 1e-9) << i;
    EXPECT_NEAR(std::hypot(map.xy, map.yy), heights[i], 1e-9) << i;
  }
}

TEST(Scene, WithoutFillsAreasAreOutlines) {
  const Records areas{"SOLID 8=0 10=0 20=0 11=2 21=0 12=0 22=2 13=2 23=2",
                      "LWPOLYLINE 8=0 90=2 70=0 43=2 10=10 20=0 10=14 20=0",
                      "HATCH 8=0 70=1 91=1 92=2 72=0 73=1 93=3 10=20 20=0 10=24 20=0 10=24 20=3 97=0 75=0 76=1"};
  const DisplayList filled = sceneOf({.entities = areas, .header = {"$FILLMODE 70=1"}});
  EXPECT_EQ(shapes<Fill>(filled).size(), 3u);
  const DisplayList outlined = sceneOf({.entities = areas, .header = {"$FILLMODE 70=0"}});
  EXPECT_TRUE(shapes<Fill>(outlined).empty());
  ASSERT_EQ(shapes<Stroke>(outlined).size(), 2u);
  expectBox(outlined.bounds(), 0, -1, 14, 2, "no hatch");
}

TEST(Scene, EndlessLinesHaveNoExtent) {
  const DisplayList list = sceneOf({.entities = {"XLINE 8=0 10=0 20=0 11=1 21=0", "RAY 8=0 10=5 20=5 11=0 21=1"}});
  const auto lines = shapes<Unbounded>(list);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_TRUE(lines[0]->bothWays);
  EXPECT_FALSE(lines[1]->bothWays);
  EXPECT_TRUE(list.bounds().empty());
}

TestDrawing looks() {
  TestDrawing d;
  d.linetypes = {"2=TIRETS 70=0 3=x 72=65 73=2 40=3 49=2 49=-1",
                 "2=MIXTE 70=0 3=x 72=65 73=4 40=4 49=2 49=-1 49=0 49=-1", "2=PLEIN 70=0 3=x 72=65 73=1 40=2 49=2"};
  d.layers = {"2=0 70=0 62=7 6=CONTINUOUS",          "2=ROUGE 70=0 62=1 6=TIRETS 370=50",
              "2=ETEINT 70=0 62=-3 6=CONTINUOUS",    "2=GELE 70=1 62=3 6=CONTINUOUS",
              "2=MUET 70=0 62=3 6=CONTINUOUS 290=0", "2=BLANC 70=0 62=7 420=16777215 6=CONTINUOUS"};
  d.header = {"$LTSCALE 40=2"};
  return d;
}

TEST(Scene, LooksComeFromEntityOrLayer) {
  const struct {
    const char* groups;
    Colour colour;
    double weight;
    std::vector<double> dashes;
  } rows[] = {
      {"8=0", kForeground, 0.25, {}},
      {"8=ROUGE", {255, 0, 0}, 0.5, {4, 2}},
      {"8=rouge 62=5", {0, 0, 255}, 0.5, {4, 2}},
      {"8=ROUGE 420=1122867 370=13", {0x11, 0x22, 0x33}, 0.13, {4, 2}},
      {"8=ROUGE 62=7 420=16777215", kForeground, 0.5, {4, 2}},
      {"8=BLANC", kForeground, 0.25, {}},
      {"8=ROUGE 62=1 420=16777215", {255, 255, 255}, 0.5, {4, 2}},
      {"8=ROUGE 6=CONTINUOUS 370=-3", {255, 0, 0}, 0.25, {}},
      {"8=0 6=MIXTE 48=0.5", kForeground, 0.25, {2, 1, 0, 1}},
      {"8=0 6=PLEIN", kForeground, 0.25, {}},
      {"8=0 6=ABSENT", kForeground, 0.25, {}},
      {"8=ABSENT", kForeground, 0.25, {}},
      {"8=ROUGE 440=33554559", {255, 0, 0, Colour::Kind::rgb, 127}, 0.5, {4, 2}},
  };
  for (const auto& row : rows) {
    TestDrawing d = looks();
    d.entities = {"LINE " + std::string(row.groups) + " 10=0 20=0 11=9 21=9"};
    const DisplayList list = sceneOf(d);
    const auto strokes = shapes<Stroke>(list);
    ASSERT_EQ(strokes.size(), 1u) << row.groups;
    const Pen& pen = strokes[0]->pen;
    EXPECT_EQ(pen.colour, row.colour) << row.groups;
    EXPECT_NEAR(pen.weightMm, row.weight, 1e-9) << row.groups;
    EXPECT_EQ(pen.dashes ? *pen.dashes : std::vector<double>{}, row.dashes) << row.groups;
  }
}

TEST(Scene, HiddenIsNotDrawn) {
  for (const char* groups : {"8=ETEINT", "8=GELE", "8=MUET", "8=Defpoints", "8=0 60=1"}) {
    TestDrawing d = looks();
    d.entities = {"LINE " + std::string(groups) + " 10=0 20=0 11=9 21=9"};
    EXPECT_TRUE(sceneOf(d).items().empty()) << groups;
  }
  TestDrawing d = looks();
  d.entities = {"LINE 8=MUET 10=0 20=0 11=9 21=9"};
  EXPECT_EQ(sceneOf(d, {.paper = false}).items().size(), 1u) << "a screen shows what is not plotted";
}

TEST(Scene, LineTypeRunsThroughVerticesOnlyWhenAsked) {
  TestDrawing d = looks();
  for (const auto& [flag, subpaths] : {std::pair{0, 2}, std::pair{128, 1}}) {
    d.entities = {"LWPOLYLINE 8=ROUGE 90=3 70=" + std::to_string(flag) + " 10=0 20=0 10=4 20=0 10=4 20=3"};
    const DisplayList list = sceneOf(d);
    const auto verbs = shapes<Stroke>(list).at(0)->path.verbs();
    EXPECT_EQ(std::ranges::count(verbs, Path::Verb::move), subpaths);
  }
}

TEST(Scene, WhatCannotBeShownIsCounted) {
  const DisplayList list =
      sceneOf({.entities = {"3DSOLID 8=0", "3DSOLID 8=0", "SPLINE 8=0 71=3 40=0", "LINE 8=0 10=1 20=1 11=2 21=2"}});
  ASSERT_EQ(list.warnings.size(), 2u);
  EXPECT_EQ(list.warnings[0], "objets non représentés, ou en partie : 2 3DSOLID (données illisibles)");
  EXPECT_EQ(list.items().size(), 1u);
}

TEST(Scene, PlotsToAFile) {
  const auto database = openDrawing({.entities = {"LINE 8=0 10=0 20=0 11=100 21=30"}});
  const auto file = std::filesystem::temp_directory_path() / ("kavel-plan-" + std::to_string(::getpid()) + ".pdf");
  PlotOptions options;
  options.page.scale = 200;
  EXPECT_TRUE(plot(WholeScene(*database), file.string(), options).empty());
  EXPECT_GT(std::filesystem::file_size(file), 500u);
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace atelier::render
