// Looks through three levels of blocks: entities by block or on layer 0 look like the reference around them, which may
// look like the next one. The outermost reference is in the model space.
#include <gtest/gtest.h>

#include "drawing.h"

namespace atelier::render {
namespace {

// A is the innermost block, with the line; B holds a reference to A, C one to B; the model space holds one to C.
TestDrawing nested(const std::string& line, const std::string& a, const std::string& b, const std::string& c) {
  TestDrawing d;
  d.layers = {"2=0 70=0 62=7 6=CONTINUOUS",       "2=ROUGE 70=0 62=1 6=TIRETE 370=50",
              "2=VERT 70=0 62=3 6=MIXTE 370=100", "2=BLEU 70=0 62=5 6=CONTINUOUS 370=13",
              "2=ETEINT 70=0 62=-2 6=CONTINUOUS", "2=GELE 70=1 62=3 6=CONTINUOUS"};
  d.linetypes = {"2=TIRETE 70=0 3=_ 72=65 73=2 40=3 49=2 49=-1",
                 "2=MIXTE 70=0 3=. 72=65 73=4 40=3 49=1 49=-1 49=0 49=-1"};
  d.blocks = {"BLOCK 8=0 2=A 70=0 10=0 20=0", "LINE " + line + " 10=0 20=0 11=1 21=1", "ENDBLK 8=0",
              "BLOCK 8=0 2=B 70=0 10=0 20=0", "INSERT " + a + " 2=A 10=0 20=0",        "ENDBLK 8=0",
              "BLOCK 8=0 2=C 70=0 10=0 20=0", "INSERT " + b + " 2=B 10=0 20=0",        "ENDBLK 8=0"};
  d.entities = {"INSERT " + c + " 2=C 10=0 20=0"};
  return d;
}

TEST(SceneLevels, ColourWeightAndLineTypeComeFromWhereTheyStand) {
  const Colour red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, yellow{255, 255, 0};
  const std::vector<double> plain, dashed{2, 1}, mixed{1, 1, 0, 1};
  const struct {
    const char *line, *a, *b, *c;
    Colour colour;
    double weight;
    std::vector<double> dashes;
  } rows[] = {
      // On layer 0 all the way: the layer of the outermost.
      {"8=0", "8=0", "8=0", "8=ROUGE", red, 0.5, dashed},
      {"8=0", "8=0", "8=VERT", "8=ROUGE", green, 1.0, mixed},
      {"8=0", "8=BLEU", "8=VERT", "8=ROUGE", blue, 0.13, plain},
      {"8=BLEU", "8=0", "8=VERT", "8=ROUGE", blue, 0.13, plain},
      // By block all the way: what the outermost says for itself.
      {"8=0 62=0 6=BYBLOCK 370=-2", "8=0 62=0 6=BYBLOCK 370=-2", "8=0 62=0 6=BYBLOCK 370=-2",
       "8=0 62=2 6=TIRETE 370=50", yellow, 0.5, dashed},
      {"8=0 62=0 6=BYBLOCK 370=-2", "8=0 62=2 6=MIXTE 370=100", "8=0 62=1", "8=0 62=3", yellow, 1.0, mixed},
      // By block in a reference that is by layer: its layer.
      {"8=0 62=0 6=BYBLOCK 370=-2", "8=ROUGE", "8=VERT", "8=BLEU", red, 0.5, dashed},
      // By block, on layer 0 in a reference on a layer.
      {"8=0 62=0 6=BYBLOCK 370=-2", "8=0", "8=VERT 62=1 6=CONTINUOUS 370=13", "8=BLEU", green, 1.0, mixed},
      {"8=0 62=0 6=BYBLOCK 370=-2", "8=0", "8=0", "8=VERT 62=1", green, 1.0, mixed},
      // By block on a layer that is not 0, through two that say nothing, to one by layer.
      {"8=BLEU 62=0 6=BYBLOCK 370=-2", "8=BLEU 62=0 6=BYBLOCK 370=-2", "8=BLEU 62=0 6=BYBLOCK 370=-2", "8=ROUGE", red,
       0.5, dashed},
      // Only one of the three properties by block.
      {"8=VERT 62=0", "8=0 62=2", "8=0", "8=0", yellow, 1.0, mixed},
      {"8=VERT 370=-2", "8=0 62=2 370=13", "8=0", "8=0", green, 0.13, mixed},
      {"8=VERT 6=BYBLOCK", "8=0 6=TIRETE", "8=0", "8=0", green, 1.0, dashed},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.line) + " | " + row.a + " | " + row.b + " | " + row.c);
    const DisplayList list = sceneOf(nested(row.line, row.a, row.b, row.c));
    const auto strokes = shapes<Stroke>(list);
    ASSERT_EQ(strokes.size(), 1u);
    const Pen& pen = strokes[0]->pen;
    EXPECT_EQ(pen.colour, row.colour) << int(pen.colour.r) << ' ' << int(pen.colour.g) << ' ' << int(pen.colour.b);
    EXPECT_NEAR(pen.weightMm, row.weight, 1e-9);
    EXPECT_EQ(pen.dashes ? *pen.dashes : plain, row.dashes);
  }
}

// A frozen layer hides the reference with all its contents; one that is off hides only contents that inherit the layer.
TEST(SceneLevels, HiddenLayersAtEachLevel) {
  const struct {
    const char *line, *a, *b, *c;
    std::size_t seen;
  } rows[] = {{"8=0", "8=0", "8=0", "8=ETEINT", 0},         {"8=0", "8=0", "8=ETEINT", "8=ROUGE", 0},
              {"8=0", "8=BLEU", "8=ETEINT", "8=ETEINT", 1}, {"8=BLEU", "8=ETEINT", "8=ETEINT", "8=ETEINT", 1},
              {"8=BLEU", "8=0", "8=0", "8=GELE", 0},        {"8=BLEU", "8=GELE", "8=0", "8=0", 0},
              {"8=GELE", "8=0", "8=0", "8=0", 0},           {"8=BLEU", "8=0 60=1", "8=0", "8=0", 0}};
  for (const auto& row : rows)
    EXPECT_EQ(sceneOf(nested(row.line, row.a, row.b, row.c)).items().size(), row.seen)
        << row.line << row.a << row.b << row.c;
}

// Scales, turns and mirrors follow each other down the levels.
TEST(SceneLevels, PlacesMultiply) {
  const DisplayList list = sceneOf(nested("8=0", "8=0 41=2 42=2", "8=0 50=90", "8=0 41=-1"));
  const Box box = list.bounds();
  // (1,1) doubled is (2,2), turned (-2,2), mirrored (2,2).
  EXPECT_NEAR(box.xMin, 0, 1e-9);
  EXPECT_NEAR(box.xMax, 2, 1e-9);
  EXPECT_NEAR(box.yMax, 2, 1e-9);
}

}  // namespace
}  // namespace atelier::render
