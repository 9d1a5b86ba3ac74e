// Sheets, scales and windows: what the options of a plot mean on paper.
#include "atelier/render/sheets/page.h"

#include <gtest/gtest.h>

#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {
namespace {

Box box(double x1, double y1, double x2, double y2) {
  Box b;
  b.add(Pt{x1, y1});
  b.add(Pt{x2, y2});
  return b;
}

PlotRequest request(std::optional<double> scale, const char* paper = nullptr) {
  PlotRequest r;
  r.scale = scale;
  if (paper) r.paper = parsePaper(paper);
  return r;
}

TEST(Page, MetresBecomeMillimetresAtTheScale) {
  const Page page = layOutPage(box(1000, 100, 1020, 110), request(200, "A4"));
  const Pt a = page.toPage({1000, 100}), b = page.toPage({1001, 101});
  EXPECT_NEAR(b.x - a.x, 5, 1e-9);
  EXPECT_NEAR(a.y - b.y, 5, 1e-9);
  const Pt middle = page.toPage({1010, 105});
  EXPECT_NEAR(middle.x, page.widthMm / 2, 1e-9);
  EXPECT_NEAR(middle.y, page.heightMm / 2, 1e-9);
  EXPECT_TRUE(page.warnings.empty());
}

TEST(Page, SheetFollowsTheContent) {
  // Width and height in metres at 1:1000 are millimetres on paper; margins are 10 mm.
  const struct {
    double width, height;
    const char* paper;
    double pageWidth, pageHeight;
  } rows[] = {{100, 50, "A4", 297, 210},       {50, 100, "A4", 210, 297},       {100, 50, "A0", 1189, 841},
              {277, 190, nullptr, 297, 210},   {278, 190, nullptr, 420, 297},   {190, 277, nullptr, 210, 297},
              {1169, 821, nullptr, 1189, 841}, {2000, 200, nullptr, 2020, 297}, {2000, 900, nullptr, 2020, 920}};
  for (const auto& row : rows) {
    const Page page = layOutPage(box(0, 0, row.width, row.height), request(1000, row.paper));
    EXPECT_EQ(page.widthMm, row.pageWidth) << row.width;
    EXPECT_EQ(page.heightMm, row.pageHeight) << row.width;
    EXPECT_TRUE(page.warnings.empty());
  }
}

TEST(Page, FitFillsTheSheet) {
  const Page wide = layOutPage(box(0, 0, 554, 10), request({}, "A4"));
  EXPECT_NEAR(wide.scale, 2000, 1e-9);
  const Page point = layOutPage(box(5, 5, 5, 5), request({}));
  EXPECT_NEAR(point.toPage({5, 5}).x, point.widthMm / 2, 1e-9);
}

TEST(Page, OverflowIsCentredAndSaidWithAWayOut) {
  const Page page = layOutPage(box(0, 0, 300, 100), request(1000, "A4"));
  EXPECT_EQ(page.widthMm, 297);
  ASSERT_EQ(page.warnings.size(), 1u);
  EXPECT_EQ(page.warnings[0],
            "à l'échelle 1:1000 le dessin mesure 300 x 100 mm, la feuille A4 n'offre que 277 x 190 mm : il est "
            "centré et coupé. Il tiendrait à l'échelle 1:2000 ou sur une feuille A3.");
  EXPECT_NEAR(page.view.width(), 277, 1e-9);
  EXPECT_NEAR((page.view.xMin + page.view.xMax) / 2, 150, 1e-9);
}

TEST(Page, WindowFramesAndClips) {
  PlotRequest r = request(100, "A4");
  r.window = parseWindow("12,3,10,2");
  const Page page = layOutPage(box(0, 0, 1000, 1000), r);
  EXPECT_NEAR(page.clipMm.width(), 20, 1e-9);
  EXPECT_NEAR(page.clipMm.height(), 10, 1e-9);
  EXPECT_NEAR(page.view.xMin, 10, 1e-9);
}

TEST(Page, EmptyDrawingIsABlankSheet) {
  const Page page = layOutPage({}, request(200));
  EXPECT_EQ(page.widthMm, 210);
  EXPECT_EQ(page.warnings.size(), 1u);
}

TEST(Page, RefusesWhatMakesNoSheet) {
  EXPECT_THROW(layOutPage(box(0, 0, 6000, 100), request(1000)), PlotError);
  PlotRequest r = request(100, "A4");
  r.marginMm = 110;
  EXPECT_THROW(layOutPage(box(0, 0, 1, 1), r), PlotError);
}

TEST(PlotOptions, AreReadStrictly) {
  EXPECT_EQ(parseScale("1:200"), 200);
  EXPECT_EQ(parseScale("1/2.5"), 2.5);
  EXPECT_EQ(parseScale("fit"), std::nullopt);
  EXPECT_EQ(parsePaper("a3").longMm, 420);
  EXPECT_EQ(parseWindow(" 1.5, -2 ,0,4").xMin, 0);
  for (const char* bad : {"", "1:0", "1:-5", "2:1", "1:2x", "ajuster"}) EXPECT_THROW(parseScale(bad), PlotError) << bad;
  for (const char* bad : {"", "A5", "A", "A10", "B4"}) EXPECT_THROW(parsePaper(bad), PlotError) << bad;
  for (const char* bad : {"", "1,2,3", "1,2,3,4,5", "1,2,3,x", "0,0,0,5", "1;2;3;4"})
    EXPECT_THROW(parseWindow(bad), PlotError) << bad;
}

}  // namespace
}  // namespace atelier::render
