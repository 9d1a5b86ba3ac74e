// Metrics of text, on which drawings and fitted tables rely.
// Checked against the fonts themselves: capital height, additivity, slant and width factor.
#include "atelier/fonts/font.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace atelier::fonts {
namespace {

TEST(Font, CapitalHeightIsTextHeight) {
  for (const char* file : {"txt", "isocp.shx", "DejaVuSans.ttf", "DejaVu Serif", "nowhere.ttf"})
    for (const double height : {0.25, 2.5, 1000.0}) {
      const Box ink = Font({.file = file}).extents("H", height).ink;
      EXPECT_NEAR(ink.yMax, height, 1e-9 * height) << file;
      EXPECT_NEAR(ink.yMin, 0, 1e-9 * height) << file;
    }
}

TEST(Font, NameGivesTheFile) {
  const struct {
    const char *name, *file;
    bool bold = false;
  } rows[] = {{"txt", "osifont.ttf"},
              {"txt.shx", "osifont.ttf"},
              {"isocp.SHX", "osifont.ttf"},
              {"", "osifont.ttf"},
              {"inconnue.ttf", "osifont.ttf"},
              {"DejaVuSans.ttf", "DejaVuSans.ttf"},
              {"dejavusans.TTF", "DejaVuSans.ttf"},
              {"C:\\WINDOWS\\FONTS\\DejaVuSerif.ttf", "DejaVuSerif.ttf"},
              {"DejaVu Sans", "DejaVuSans.ttf"},
              {"DejaVu Sans", "DejaVuSans-Bold.ttf", true}};
  for (const auto& row : rows) {
    const std::string path = findFace(row.name, row.bold).file();
    EXPECT_EQ(path.substr(path.rfind('/') + 1), row.file) << row.name;
  }
}

TEST(Font, WidthsAddUpAndScale) {
  const Font font({.file = "txt"});
  const double one = font.advance("PROFIL", 2.5) + font.advance(" EN LONG", 2.5);
  EXPECT_NEAR(font.advance("PROFIL EN LONG", 2.5), one, 1e-9);
  EXPECT_NEAR(font.advance("PROFIL", 5.0), 2 * font.advance("PROFIL", 2.5), 1e-9);
  EXPECT_NEAR(Font({.file = "txt", .widthFactor = 0.6}).extents("TN 104.25", 2.5).ink.width(),
              0.6 * font.extents("TN 104.25", 2.5).ink.width(), 1e-9);
  EXPECT_EQ(font.advance("%%c", 1), font.advance("∅", 1));
  EXPECT_GT(font.advance("1+250.50", 1), 4.0);
  EXPECT_LT(font.advance("1+250.50", 1), 8.0);
}

TEST(Font, ObliqueLeansAboutTheBaseline) {
  const double angle = 15 * std::acos(-1.0) / 180;
  const Box upright = Font({.file = "DejaVuSans.ttf"}).extents("H", 10).ink,
            leaning = Font({.file = "DejaVuSans.ttf", .oblique = angle}).extents("H", 10).ink;
  EXPECT_NEAR(leaning.xMax - upright.xMax, 10 * std::tan(angle), 1e-9);
  EXPECT_NEAR(leaning.xMin, upright.xMin, 1e-9);
  EXPECT_NEAR(leaning.yMax, upright.yMax, 1e-9);
}

TEST(Font, InkIsExactNotControlPoints) {
  // The box of a slanted O must be that of the outline flattened finely.
  const Font font({.oblique = 0.3});
  const Path outline = font.outline("O", 1);
  Box dense;
  Pt last;
  std::size_t i = 0;
  for (const auto verb : outline.verbs()) {
    const auto p = outline.points().subspan(i);
    for (int k = 0; verb == Path::Verb::cubic && k <= 2000; ++k) {
      const double t = k / 2000.0, u = 1 - t;
      dense.add(u * u * u * last + 3 * u * u * t * p[0] + (3 * u * t * t * p[1] + t * t * t * p[2]));
    }
    const std::size_t n = verb == Path::Verb::cubic ? 3 : verb == Path::Verb::close ? 0 : 1;
    if (n == 1) dense.add(p[0]);
    if (n) last = p[n - 1];
    i += n;
  }
  const Box ink = font.extents("O", 1).ink;
  EXPECT_NEAR(ink.xMin, dense.xMin, 1e-6);
  EXPECT_NEAR(ink.xMax, dense.xMax, 1e-6);
  EXPECT_NEAR(ink.yMin, dense.yMin, 1e-6);
  EXPECT_NEAR(ink.yMax, dense.yMax, 1e-6);
}

TEST(Font, NothingToDrawGivesNoInk) {
  const Font font({});
  EXPECT_TRUE(font.extents("   ", 2.5).ink.empty());
  EXPECT_GT(font.extents("   ", 2.5).advance, 0);
  for (const double height : {0.0, -2.5, std::nan("")}) {
    EXPECT_TRUE(font.extents("TN", height).ink.empty());
    EXPECT_EQ(font.advance("TN", height), 0);
    EXPECT_TRUE(font.outline("TN", height).empty());
  }
}

TEST(Font, UnderlineSpansItsRun) {
  const TextLine line = Font({}).layout("ab%%ucd%%u e");
  ASSERT_EQ(line.bars.size(), 1u);
  EXPECT_NEAR(line.bars[0].xMin, line.glyphs[2].x, 1e-12);
  EXPECT_NEAR(line.bars[0].xMax, line.glyphs[4].x, 1e-12);
  EXPECT_LT(line.bars[0].yMax, 0);
}

TEST(Font, CharactersAFontLacksComeFromAnother) {
  const Face& osifont = findFace("txt");
  ASSERT_FALSE(osifont.has(U'↯'));
  ASSERT_TRUE(findFace("DejaVuSans.ttf").has(U'↯'));
  EXPECT_EQ(osifont.glyph(U'↯').advance, findFace("DejaVuSans.ttf").glyph(U'↯').advance);
}

TEST(Font, ServesSeveralThreads) {
  double widths[4] = {};
  std::vector<std::thread> threads;
  for (double& width : widths)
    threads.emplace_back(
        [&width] { width = Font({.file = "DejaVuSerif.ttf"}).extents("Fil d'eau 98,72 à gauche", 2).ink.width(); });
  for (std::thread& thread : threads) thread.join();
  for (const double width : widths) EXPECT_EQ(width, widths[0]);
}

}  // namespace
}  // namespace atelier::fonts
