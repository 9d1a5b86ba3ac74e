// Lines drawn straight into a picture: the pixels that are set, and that none is set outside.
#include "atelier/render/painters/hairlines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "atelier/fonts/path.h"

namespace {

using atelier::render::Colour;
using atelier::render::Hairlines;
using atelier::render::Path;

constexpr int kWidth = 12, kHeight = 6, kEdge = 40;  // the picture stands in a larger block of memory

struct Picture {
  std::vector<std::uint32_t> memory = std::vector<std::uint32_t>(kWidth * kHeight + 2 * kEdge, 7);
  Picture() { std::fill_n(memory.begin() + kEdge, kWidth * kHeight, 0); }
  Hairlines lines{reinterpret_cast<unsigned char*>(memory.data() + kEdge), kWidth, kHeight, kWidth * 4};

  std::string text() const {
    std::string rows;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x)
        rows += memory[static_cast<std::size_t>(kEdge + y * kWidth + x)] == 0xFF102030 ? '#' : '.';
      rows += '\n';
    }
    return rows;
  }
  bool edgesAreWhole() const {
    for (int i = 0; i < kEdge; ++i)
      if (memory[static_cast<std::size_t>(i)] != 7 || memory[memory.size() - 1 - static_cast<std::size_t>(i)] != 7)
        return false;
    return true;
  }
};

Path path(std::initializer_list<atelier::render::Pt> points, bool close = false) {
  Path p;
  bool first = true;
  for (const auto& at : points) first ? p.moveTo(at) : p.lineTo(at), first = false;
  if (close) p.close();
  return p;
}

TEST(Hairlines, TakeThePixelsOfTheirLine) {
  const struct {
    Path path;
    int thickness;
    const char* pixels;
  } rows[] = {{path({{1.5, 2.5}, {9.5, 2.5}}), 1,
               "............\n............\n.#########..\n............\n............\n............\n"},
              {path({{2.5, 0.5}, {2.5, 5.5}}), 1,
               "..#.........\n..#.........\n..#.........\n..#.........\n..#.........\n..#.........\n"},
              {path({{1.5, 1.5}, {4.5, 4.5}}), 1,
               "............\n.#..........\n..#.........\n...#........\n....#.......\n............\n"},
              {path({{1.5, 2.5}, {4.5, 2.5}}), 2,
               "............\n............\n.####.......\n.####.......\n............\n............\n"},
              {path({{1.5, 2.5}, {4.5, 2.5}}), 3,
               "............\n.####.......\n.####.......\n.####.......\n............\n............\n"},
              {path({{1.5, 1.5}, {5.5, 1.5}, {5.5, 4.5}, {1.5, 4.5}}, true), 1,
               "............\n.#####......\n.#...#......\n.#...#......\n.#####......\n............\n"},
              // Far beyond the picture on both sides, and wholly outside.
              {path({{-1e9, 3.5}, {1e9, 3.5}}), 1,
               "............\n............\n............\n############\n............\n............\n"},
              {path({{-50, -50}, {-10, 80}}), 1,
               "............\n............\n............\n............\n............\n............\n"}};
  for (const auto& row : rows) {
    Picture picture;
    picture.lines.stroke(row.path, {}, Colour{0x10, 0x20, 0x30}, row.thickness);
    EXPECT_EQ(picture.text(), row.pixels);
    EXPECT_TRUE(picture.edgesAreWhole());
  }
}

TEST(Hairlines, CurvesAreFollowed) {
  Picture picture;
  Path half;
  half.moveTo({1.5, 5});
  half.cubicTo({1.5, -1.6}, {10.5, -1.6}, {10.5, 5});  // its crown is at y = 0.05
  picture.lines.stroke(half, {}, Colour{0x10, 0x20, 0x30}, 1);
  const std::string rows = picture.text();
  EXPECT_EQ(rows.substr(5, 2), "##") << rows;          // the crown
  EXPECT_EQ(rows[4 * (kWidth + 1) + 1], '#') << rows;  // the feet
  EXPECT_EQ(rows[4 * (kWidth + 1) + 10], '#') << rows;
  EXPECT_EQ(rows.substr(5 * (kWidth + 1) + 3, 6), "......") << rows;  // nothing between them
}

TEST(Hairlines, NumbersThatAreNoneDrawNothing) {
  for (const double bad : {std::nan(""), std::numeric_limits<double>::infinity(), -1e308}) {
    Picture picture;
    picture.lines.stroke(path({{bad, 1}, {5, bad}, {bad, bad}}), {}, Colour{0x10, 0x20, 0x30}, 3);
    Path curve;
    curve.moveTo({1, 1});
    curve.cubicTo({bad, 2}, {3, bad}, {4, 4});
    picture.lines.stroke(curve, {}, Colour{0x10, 0x20, 0x30}, 1);
    EXPECT_TRUE(picture.edgesAreWhole()) << bad;
  }
}

// A crowd of lines, the topmost first, against the same lines each on a picture of its own.
TEST(Hairlines, WhatIsThereStaysOnTop) {
  constexpr int kSide = 75, kLines = 600;
  constexpr auto kPixels = static_cast<std::size_t>(kSide * kSide);
  std::vector<std::uint32_t> crowd(kPixels), expected(kPixels);
  Hairlines lines{reinterpret_cast<unsigned char*>(crowd.data()), kSide, kSide, kSide * 4};
  std::minstd_rand random(1);
  const auto place = [&] { return std::uniform_real_distribution(-20.0, kSide + 20.0)(random); };
  const auto map = atelier::render::Affine::scaling(0.5, 2);
  for (int i = 0; i < kLines; ++i) {
    const Path line = path({{2 * place(), place() / 2}, {2 * place(), place() / 2}});
    const Colour colour{1, static_cast<std::uint8_t>(i / 256), static_cast<std::uint8_t>(i % 256)};
    lines.stroke(line, map, colour, 1 + i % 3);
    std::vector<std::uint32_t> alone(kPixels);
    Hairlines{reinterpret_cast<unsigned char*>(alone.data()), kSide, kSide, kSide * 4}.stroke(line, map, colour,
                                                                                              1 + i % 3);
    for (std::size_t k = 0; k < kPixels; ++k)
      if (!expected[k]) expected[k] = alone[k];
  }
  EXPECT_EQ(crowd, expected);
  EXPECT_LT(std::ranges::count(crowd, 0U), 20) << "too few lines to hide anything";
}

TEST(Hairlines, AHalfCoveredPixelLetsTheLineThrough) {
  Picture picture;
  picture.memory[kEdge + 2 * kWidth + 4] = 0x80400000;  // half of a red 0x80
  picture.lines.stroke(path({{1.5, 2.5}, {9.5, 2.5}}), {}, Colour{0x10, 0x20, 0x30}, 1);
  EXPECT_EQ(picture.memory[kEdge + 2 * kWidth + 4], 0xFF481018);
}

}  // namespace
