// Contents of blocks: places, inherited looks, sources for picking, and the limits for hostile drawings.
#include <gtest/gtest.h>

#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/shapes/plot_error.h"
#include "drawing.h"

namespace atelier::render {
namespace {

TestDrawing drawing(const Records& inside, const Records& entities) {
  TestDrawing d;
  d.layers = {"2=0 70=0 62=7 6=CONTINUOUS", "2=ROUGE 70=0 62=1 6=CONTINUOUS 370=50", "2=ETEINT 70=0 62=-3 6=CONTINUOUS",
              "2=GELE 70=1 62=3 6=CONTINUOUS"};
  d.blocks = {"BLOCK 8=0 2=B 70=0 10=1 20=1"};
  d.blocks.insert(d.blocks.end(), inside.begin(), inside.end());
  d.blocks.push_back("ENDBLK 8=0");
  d.entities = entities;
  return d;
}

TEST(SceneBlock, ReferencesPlaceTheirContent) {
  // The block is a line from its base point (1,1) to (3,2).
  const Records line{"LINE 8=0 10=1 20=1 11=3 21=2"};
  const struct {
    const char* reference;
    double x1, y1, x2, y2;
  } rows[] = {
      {"INSERT 8=0 2=B 10=10 20=10", 10, 10, 12, 11},
      {"INSERT 8=0 2=b 10=10 20=10 41=2 42=3", 10, 10, 14, 13},
      {"INSERT 8=0 2=B 10=10 20=10 41=-1", 8, 10, 10, 11},
      {"INSERT 8=0 2=B 10=10 20=10 50=90", 9, 10, 10, 12},
      {"INSERT 8=0 2=B 10=10 20=10 210=0 220=0 230=-1", -12, 10, -10, 11},
      {"INSERT 8=0 2=B 10=10 20=10 70=3 71=2 44=5 45=4", 10, 10, 22, 15},
      {"INSERT 8=0 2=B 10=10 20=10 50=90 70=3 44=5", 9, 10, 10, 22},
      {"INSERT 8=0 2=B 10=10 20=10 41=0", 10, 10, 12, 11},
      {"DIMENSION 8=0 2=B 10=5 20=5", 1, 1, 3, 2},
  };
  for (const auto& row : rows) {
    // A dimension's block has its content in world coordinates, and no base point.
    const Box box = sceneOf(drawing(line, {row.reference})).bounds();
    EXPECT_NEAR(box.xMin, row.x1, 1e-9) << row.reference;
    EXPECT_NEAR(box.yMin, row.y1, 1e-9) << row.reference;
    EXPECT_NEAR(box.xMax, row.x2, 1e-9) << row.reference;
    EXPECT_NEAR(box.yMax, row.y2, 1e-9) << row.reference;
  }
}

TEST(SceneBlock, ContentInheritsByBlockAndLayerZero) {
  const struct {
    const char *content, *reference;
    Colour colour;
    double weight;
  } rows[] = {
      {"LINE 8=0", "8=ROUGE", {255, 0, 0}, 0.5},
      {"LINE 8=0 62=0 370=-2", "8=0 62=3 370=100", {0, 255, 0}, 1.0},
      {"LINE 8=0 62=5", "8=ROUGE 62=3", {0, 0, 255}, 0.5},
      {"LINE 8=ROUGE", "8=0 62=3", {255, 0, 0}, 0.5},
  };
  for (const auto& row : rows) {
    const DisplayList list = sceneOf(drawing({std::string(row.content) + " 10=0 20=0 11=1 21=1"},
                                             {"INSERT " + std::string(row.reference) + " 2=B 10=0 20=0"}));
    const auto strokes = shapes<Stroke>(list);
    ASSERT_EQ(strokes.size(), 1u);
    EXPECT_EQ(strokes[0]->pen.colour, row.colour) << row.content << row.reference;
    EXPECT_NEAR(strokes[0]->pen.weightMm, row.weight, 1e-9) << row.content << row.reference;
  }
}

TEST(SceneBlock, OffHidesWhatIsOnLayerZeroFrozenHidesAll) {
  const Records inside{"LINE 8=0 10=0 20=0 11=1 21=1", "LINE 8=ROUGE 10=0 20=0 11=1 21=1"};
  const struct {
    const char* layer;
    std::size_t seen;
  } rows[] = {{"0", 2}, {"ETEINT", 1}, {"GELE", 0}};
  for (const auto& row : rows)
    EXPECT_EQ(sceneOf(drawing(inside, {"INSERT 8=" + std::string(row.layer) + " 2=B 10=0 20=0"})).items().size(),
              row.seen)
        << row.layer;
}

TEST(SceneBlock, SourceIsTheReferenceInTheModelSpace) {
  TestDrawing d =
      drawing({"LINE 8=0 10=0 20=0 11=1 21=1"}, {"INSERT 5=A1 8=0 2=C 10=0 20=0", "LINE 5=A2 8=0 10=0 20=0 11=1 21=1"});
  d.blocks.insert(d.blocks.end(), {"BLOCK 8=0 2=C 70=0 10=0 20=0", "INSERT 8=0 2=B 10=0 20=0", "ENDBLK 8=0"});
  const DisplayList list = sceneOf(d);
  ASSERT_EQ(list.items().size(), 2u);
  EXPECT_EQ(list.items()[0].source, 0xA1u);
  EXPECT_EQ(list.items()[1].source, 0xA2u);
}

TEST(SceneBlock, SelfReferenceAndMissingBlocksAreSaid) {
  const DisplayList self =
      sceneOf(drawing({"LINE 8=0 10=0 20=0 11=1 21=1", "INSERT 8=0 2=B 10=5 20=5"}, {"INSERT 8=0 2=B 10=0 20=0"}));
  EXPECT_EQ(self.items().size(), 1u);
  EXPECT_EQ(self.warnings, std::vector<std::string>{"bloc qui se contient lui-même"});
  EXPECT_EQ(sceneOf({.entities = {"INSERT 8=0 2=RIEN 10=0 20=0"}}).warnings,
            std::vector<std::string>{"référence à un bloc absent : RIEN"});
}

// Ten levels of ten references each.
TestDrawing tenBillions() {
  TestDrawing nested = drawing({"POINT 8=0 10=0 20=0"}, {"INSERT 8=0 2=N9 10=0 20=0"});
  for (int level = 0; level < 10; ++level) {
    nested.blocks.push_back("BLOCK 8=0 2=N" + std::to_string(level) + " 70=0 10=0 20=0");
    for (int i = 0; i < 10; ++i)
      nested.blocks.push_back("INSERT 8=0 2=" + (level ? "N" + std::to_string(level - 1) : std::string("B")) +
                              " 10=1 20=0");
    nested.blocks.push_back("ENDBLK 8=0");
  }
  return nested;
}

TEST(SceneBlock, ListsOfBillionsEndWithAWarning) {
  SceneOptions options;
  options.mostPrimitives = 5000;
  const DisplayList list = sceneOf(tenBillions(), options);
  EXPECT_LE(list.items().size(), 5000u);
  ASSERT_EQ(list.warnings.size(), 1u);
  EXPECT_TRUE(list.warnings[0].starts_with("dessin incomplet : arrêté après 5000 objets"));
  const DisplayList empty = sceneOf(drawing({}, {"INSERT 8=0 2=B 10=0 20=0 70=32000 71=32000 44=1 45=1"}), options);
  EXPECT_EQ(empty.warnings.size(), 1u);
}

// What a plot paints: all, however small the file is that stands for it; a trap is named before anything is painted.
TEST(SceneBlock, PlotsAreWholeOrAnError) {
  TestDrawing symbols = drawing(Records(300, "LINE 8=0 10=0 20=0 11=1 21=1"), {});
  for (int i = 0; i < 1000; ++i) symbols.entities.push_back("INSERT 8=0 2=B 10=" + std::to_string(2 * i) + " 20=0");
  const auto database = openDrawing(symbols);
  const WholeScene scene(*database);
  std::size_t painted = 0;
  Box box;
  scene.each([&](const Primitive& item) { ++painted, box.add(item.box); });
  EXPECT_EQ(painted, 300'000u);
  EXPECT_NEAR(box.xMax, 1998, 1e-9);  // the base point of the block is 1,1
  EXPECT_NEAR(scene.bounds().xMax, 1998, 1e-9);
  EXPECT_TRUE(scene.warnings().empty());

  TestDrawing frozen = tenBillions();
  frozen.entities = {"INSERT 8=GELE 2=N9 10=0 20=0"};
  const struct {
    TestDrawing drawing;
    const char* said;
  } rows[] = {
      {tenBillions(), "du bloc N9, 10 000 000 000 objets"},
      {drawing({}, {"INSERT 8=0 2=B 10=0 20=0 70=32000 71=32000 44=1 45=1"}), "du bloc B, 1 024 000 000 objets"},
      {frozen, ""},
  };
  for (const auto& row : rows) {
    std::string said;
    try {
      WholeScene(*openDrawing(row.drawing));
    } catch (const PlotError& error) {
      said = error.what();
    }
    EXPECT_EQ(said.empty(), *row.said == 0) << said;
    EXPECT_NE(said.find(row.said), said.npos) << said;
  }
}

}  // namespace
}  // namespace atelier::render
