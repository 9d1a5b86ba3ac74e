// Plots of a small display list, read back: pixels of a PNG, the shape of PDF and SVG files, errors on disk.
#include "atelier/render/sheets/plot.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/painters/legible.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/shapes/tessellate.h"

namespace atelier::render {
namespace {

namespace fs = std::filesystem;

class Plot : public ::testing::Test {
 protected:
  fs::path folder = fs::temp_directory_path() / ("kavel-plot-" + std::to_string(::getpid()));
  void SetUp() override { fs::create_directories(folder); }
  void TearDown() override { fs::remove_all(folder); }
  std::string at(const char* name) const { return (folder / name).string(); }
  static std::string contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
};

Path line(Pt a, Pt b) {
  Path path;
  path.moveTo(a);
  path.lineTo(b);
  return path;
}

// 20 m by 10 m in national coordinates: a frame, a red diagonal, a green square, a text, a horizontal xline.
DisplayList sample() {
  const Pt o{1652000, 8172000};
  DisplayList list;
  Box frame;
  frame.add(o);
  frame.add(o + Pt{20, 10});
  list.add(1, Stroke{fonts::rectangle(frame), {kForeground, 0.5, nullptr}});
  list.add(2, Stroke{line(o, o + Pt{20, 10}), {{255, 0, 0}, 0.5, nullptr}});
  Box square;
  square.add(o + Pt{1, 6});
  square.add(o + Pt{4, 9});
  list.add(3, Fill{fonts::rectangle(square), {0, 255, 0}, true});
  list.add(4, GlyphRun{fonts::Font({}).layout("TN"),
                       Affine::translation(o.x + 12, o.y + 1) * fonts::Font({}).shape(3),
                       {0, 0, 255}});
  list.add(5, Unbounded{o + Pt{0, 9.5}, {1, 0}, true, {{255, 0, 255}, 0.5, nullptr}});
  return list;
}

PlotOptions options(double dpi = 254) {
  PlotOptions o;
  o.page.scale = 100;
  o.page.paper = parsePaper("A4");
  o.dpi = dpi;  // 254: ten pixels in a millimetre
  return o;
}

struct Picture {
  cairo_surface_t* surface;
  explicit Picture(const std::string& path) : surface(cairo_image_surface_create_from_png(path.c_str())) {}
  ~Picture() { cairo_surface_destroy(surface); }
  std::uint32_t pixel(int x, int y) const {
    const auto* row = cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
    return reinterpret_cast<const std::uint32_t*>(row)[x] & 0xFFFFFF;
  }
  int count(std::uint32_t rgb) const {
    int n = 0;
    for (int y = 0; y < cairo_image_surface_get_height(surface); ++y)
      for (int x = 0; x < cairo_image_surface_get_width(surface); ++x) n += pixel(x, y) == rgb;
    return n;
  }
};

TEST_F(Plot, SaysWhenWhitePaperShowsNothing) {
  const auto warned = [&](Colour colour) {
    DisplayList list;
    list.add(1, Stroke{line({0, 0}, {20, 10}), {colour, 0.5, nullptr}});
    return !plot(WholeScene(list), at("blanc.svg"), options()).empty();
  };
  EXPECT_TRUE(warned({255, 255, 255}));
  EXPECT_TRUE(warned(kBackground));
  EXPECT_FALSE(warned(kForeground));
  EXPECT_FALSE(warned({254, 255, 255}));
}

TEST_F(Plot, PngHasTheDrawingToScale) {
  EXPECT_TRUE(plot(WholeScene(sample()), at("p.png"), options()).empty());
  const Picture picture(at("p.png"));
  ASSERT_EQ(cairo_image_surface_get_width(picture.surface), 2970);
  ASSERT_EQ(cairo_image_surface_get_height(picture.surface), 2100);
  // 20 x 10 m at 1:100 is 200 x 100 mm in the middle of 297 x 210: its corner (0,0) at 48.5, 155 mm.
  EXPECT_EQ(picture.pixel(485, 1550 - 250), 0u) << "left side of the frame";
  EXPECT_EQ(picture.pixel(485 + 1000, 1550 - 500), 0xFF0000u) << "middle of the diagonal";
  EXPECT_EQ(picture.pixel(485 + 250, 1550 - 750), 0x00FF00u) << "inside the square";
  EXPECT_EQ(picture.pixel(485 + 1000, 1550 - 200), 0xFFFFFFu) << "an empty place";
  EXPECT_NEAR(picture.count(0x00FF00), 300 * 300, 3000) << "the square is three metres wide";
  EXPECT_GT(picture.count(0x0000FF), 5000) << "the text";
  EXPECT_EQ(picture.pixel(110, 1550 - 950), 0xFF00FFu) << "the endless line runs to the margin";
  EXPECT_EQ(picture.pixel(90, 1550 - 950), 0xFFFFFFu) << "and not beyond";
}

TEST_F(Plot, VectorFilesHaveTheSheetsSize) {
  plot(WholeScene(sample()), at("p.PDF"), options());
  EXPECT_TRUE(contents(at("p.PDF")).starts_with("%PDF-"));
  EXPECT_NE(contents(at("p.PDF")).find("/MediaBox [ 0 0 841.88"), std::string::npos);
  plot(WholeScene(sample()), at("p.svg"), options());
  EXPECT_NE(contents(at("p.svg")).find("width=\"841.88"), std::string::npos);
  EXPECT_EQ(contents(at("p.svg")).find("<image"), std::string::npos) << "vectors only";
}

// By an independent reader: the text is text, of an embedded font, at its place on the sheet.
TEST_F(Plot, PdfCanBeSearched) {
  plot(WholeScene(sample()), at("p.pdf"), options());
  ASSERT_EQ(std::system(("pdftotext -bbox " + at("p.pdf") + ' ' + at("p.txt")).c_str()), 0);
  const std::string words = contents(at("p.txt"));
  const auto word = words.find(">TN<");
  ASSERT_NE(word, std::string::npos) << words;
  const auto line = words.rfind("xMin=\"", word);
  // 12 m from the left of the frame, which stands 48.5 mm from the left of the sheet.
  EXPECT_NEAR(std::stod(words.substr(line + 6)), (48.5 + 120) * 72 / 25.4, 1.0);
}

TEST_F(Plot, TransparencyDashesAndRulesShow) {
  DisplayList list;
  Box square;
  square.add(Pt{0, 0});
  square.add(Pt{10, 10});
  Path holed = fonts::rectangle(square);
  addEllipse(holed, {5, 5}, {2, 0}, {0, 2});
  list.add(1, Fill{holed, {255, 0, 0, Colour::Kind::rgb, 128}, true});
  const auto dashes = std::make_shared<const std::vector<double>>(std::vector<double>{1, 1});
  list.add(2, Stroke{line({0, 12}, {10, 12}), {kForeground, 0.4, dashes}});
  plot(WholeScene(list), at("d.png"), options());
  const Picture picture(at("d.png"));
  const int x0 = 1050 - 500, y0 = 1485 + 600;  // portrait: 10 x 12 m at 1:100
  EXPECT_EQ(picture.pixel(x0 + 100, y0 - 100) >> 8, 0xFF7Fu) << "half red on white";
  EXPECT_EQ(picture.pixel(x0 + 500, y0 - 500), 0xFFFFFFu) << "the hole";
  EXPECT_EQ(picture.pixel(x0 + 50, y0 - 1200), 0u) << "a dash";
  EXPECT_EQ(picture.pixel(x0 + 150, y0 - 1200), 0xFFFFFFu) << "a gap";
}

TEST_F(Plot, HugeGeometryNeitherOverflowsNorStalls) {
  DisplayList list;
  Path path = line({-1e12, 5}, {1e12, 5});
  list.add(1, Stroke{path,
                     {kForeground, 0.5, std::make_shared<const std::vector<double>>(std::vector<double>{1e-9, 1e-9})}});
  Path disc;
  addEllipse(disc, {1e9, 5}, {1e9, 0}, {0, 1e9});
  list.add(2, Fill{disc, {0, 0, 255}, true});
  PlotOptions o = options();
  o.page.window = parseWindow("-5,0,5,10");
  plot(WholeScene(list), at("h.png"), o);
  const Picture picture(at("h.png"));
  EXPECT_EQ(picture.pixel(1050 + 250, 1485 + 250), 0x0000FFu);
  EXPECT_EQ(picture.pixel(1050 - 250, 1485 + 250), 0xFFFFFFu);
}

TEST_F(Plot, ScreenTurnsForegroundWhite) {
  DisplayList list;
  list.add(1, Stroke{line({0, 5}, {10, 5}), {kForeground, 1, nullptr}});
  std::vector<std::uint32_t> pixels(100);
  PaintOptions o;
  o.foreground = {255, 255, 255};
  o.background = {0, 0, 0};
  paintPicture(reinterpret_cast<unsigned char*>(pixels.data()), 10, 10, 40, list, o);
  EXPECT_GT(pixels[55] & 0xFF, 100u);
  EXPECT_EQ(pixels[5] & 0xFFFFFF, 0u);
}

// The middle pixel of a thick line on a ground.
std::uint32_t shownOn(const Colour& ground, const Colour& line, double leastContrast) {
  DisplayList list;
  Path path;
  path.moveTo({0, 5});
  path.lineTo({10, 5});
  list.add(1, Stroke{path, {line, 6, nullptr}});
  std::vector<std::uint32_t> pixels(100);
  PaintOptions o;
  o.background = ground;
  o.leastContrast = leastContrast;
  paintPicture(reinterpret_cast<unsigned char*>(pixels.data()), 10, 10, 40, list, o);
  return pixels[55] & 0xFFFFFF;
}

// Colours that are too dim for their ground keep their hue; those that can be seen stay as they are, and so do areas.
TEST_F(Plot, DimLinesAreLightenedWhereContrastIsAsked) {
  const Colour dark{30, 32, 36}, blue{0, 0, 255}, brown{76, 38, 0}, yellow{255, 255, 0}, white{255, 255, 255};
  EXPECT_EQ(shownOn(dark, blue, 0), 0x0000FFu);
  for (const Colour& dim : {blue, brown}) {
    const std::uint32_t shown = shownOn(dark, dim, 4.5);
    const Colour seen{static_cast<std::uint8_t>(shown >> 16), static_cast<std::uint8_t>(shown >> 8),
                      static_cast<std::uint8_t>(shown)};
    EXPECT_GE(contrast(seen, dark), 4.5);
    EXPECT_LT(contrast(seen, dark), 6.0);
    EXPECT_EQ(seen.b > seen.r, dim.b > dim.r);
  }
  EXPECT_EQ(shownOn(dark, yellow, 4.5), 0xFFFF00u);
  EXPECT_NE(shownOn(white, yellow, 4.5), 0xFFFF00u);
  EXPECT_NEAR(contrast({0, 0, 0}, white), 21.0, 1e-9);
}

TEST_F(Plot, ScreenShowsTinyTextsAsLines) {
  DisplayList list;
  list.add(1, GlyphRun{fonts::Font({}).layout("I I I I I"), Affine::translation(0, 5) * fonts::Font({}).shape(1)});
  std::vector<std::uint32_t> pixels(100);
  PaintOptions o;
  o.greekBelow = 2;
  o.thinnest = 1;
  paintPicture(reinterpret_cast<unsigned char*>(pixels.data()), 10, 10, 40, list, o);
  for (unsigned x = 1; x < 3; ++x) EXPECT_LT(pixels[50 + x] & 0xFF, 0x40u) << x << " letters would leave gaps";
}

TEST_F(Plot, ErrorsSayWhereAndLeaveTheTarget) {
  EXPECT_THROW(plot(WholeScene(sample()), at("p.dwf"), options()), PlotError);
  EXPECT_THROW(plot(WholeScene(sample()), at("p"), options()), PlotError);
  EXPECT_THROW(plot(WholeScene(sample()), at("p.png"), options(5)), PlotError);
  EXPECT_THROW(plot(WholeScene(sample()), folder.string() + "/.", options()), PlotError);
  try {
    plot(WholeScene(sample()), at("absent/p.pdf"), options());
    FAIL();
  } catch (const PlotError& error) {
    EXPECT_NE(std::string(error.what()).find("absent/p.pdf: écriture impossible"), std::string::npos) << error.what();
  }
  std::ofstream(at("garde.png")) << "ancien";
  PlotOptions large = options(2400);
  large.page.paper = parsePaper("A0");
  EXPECT_THROW(plot(WholeScene(sample()), at("garde.png"), large), PlotError);
  EXPECT_EQ(contents(at("garde.png")), "ancien");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "no temporary file is left";
}

}  // namespace
}  // namespace atelier::render
