// Shape files: where the pen goes for each of its codes.
#include "atelier/fonts/shape_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

namespace atelier::fonts {
namespace {

std::string word(std::size_t value) { return {static_cast<char>(value & 255), static_cast<char>(value >> 8)}; }

std::string fileOf(const std::vector<std::pair<std::string, std::vector<int>>>& shapes) {
  std::string index, bodies;
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    std::string body = shapes[i].first + '\0';
    for (const int code : shapes[i].second) body += static_cast<char>(code);
    body += '\0';
    index += word(i + 1) + word(body.size());
    bodies += body;
  }
  return "AutoCAD-86 shapes V1.0\r\n\x1a" + word(1) + word(shapes.size()) + word(shapes.size()) + index + bodies;
}

class Shapes : public ::testing::Test {
 protected:
  std::string path =
      (std::filesystem::temp_directory_path() / ("kavel-formes-" + std::to_string(::getpid()) + ".shx")).string();
  void TearDown() override { std::filesystem::remove(path); }
};

TEST_F(Shapes, ThePenFollowsItsCodes) {
  const double degree = std::numbers::pi / 180;
  const struct {
    const char* name;
    std::vector<int> codes;
    std::size_t strokes;
    Pt last, inside;  // the end, and a point that the last stroke passes
  } rows[] = {
      {"CARRE", {0x20, 0x24, 0x28, 0x2C}, 1, {0, 0}, {2, 2}},
      {"RAYON", {0x21}, 1, {2, 1}, {2, 1}},
      {"PAS", {8, -3, 4}, 1, {-3, 4}, {-3, 4}},
      {"SUITE", {9, 1, 0, 0, 1, 0, 0, 0x10}, 1, {2, 1}, {1, 1}},
      {"LEVE", {2, 8, 5, 5, 1, 0x10, 2, 0x14}, 1, {6, 5}, {5, 5}},
      {"ECHELLE", {4, 3, 3, 2, 0x20}, 1, {3, 0}, {3, 0}},
      {"RETOUR", {5, 0x10, 6, 0x14}, 2, {0, 1}, {0, 1}},
      {"AUTRE", {2, 8, 10, 0, 1, 7, 1}, 1, {10, 0}, {12, 2}},
      {"DEMI", {10, 1, 0x04}, 1, {-2, 0}, {-1, 1}},
      {"DEMIBAS", {10, 1, -0x04}, 1, {-2, 0}, {-1, -1}},
      {"ROND", {10, 2, 0x20}, 1, {0, 0}, {0, -4}},
      {"FRACTION",
       {11, 56, 28, 0, 3, 0x12},
       1,
       {3 * (std::cos(94.921875 * degree) - std::cos(54.84375 * degree)),
        3 * (std::sin(94.921875 * degree) - std::sin(54.84375 * degree))},
       {3 * (std::cos(94.921875 * degree) - std::cos(54.84375 * degree)),
        3 * (std::sin(94.921875 * degree) - std::sin(54.84375 * degree))}},
      {"VENTRE", {12, 2, 0, 127}, 1, {2, 0}, {1, -1}},
      {"DOS", {13, 2, 0, -127, 2, 0, 0, 0, 0, 0x14}, 1, {4, 1}, {1, 1}},
      {"VERTICAL", {14, 8, 9, 9, 0x10}, 1, {1, 0}, {1, 0}},
  };
  std::vector<std::pair<std::string, std::vector<int>>> shapes;
  for (const auto& row : rows) shapes.emplace_back(row.name, row.codes);
  std::ofstream(path, std::ios::binary) << fileOf(shapes);
  const auto file = ShapeFile::of(path);
  ASSERT_TRUE(file);
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const auto strokes = file->shape(static_cast<int>(i) + 1);
    ASSERT_TRUE(strokes) << rows[i].name;
    ASSERT_EQ(strokes->size(), rows[i].strokes) << rows[i].name;
    EXPECT_NEAR(strokes->back().back().x, rows[i].last.x, 1e-9) << rows[i].name;
    EXPECT_NEAR(strokes->back().back().y, rows[i].last.y, 1e-9) << rows[i].name;
    double nearest = INFINITY;
    for (const Pt p : strokes->back())
      nearest = std::fmin(nearest, std::hypot(p.x - rows[i].inside.x, p.y - rows[i].inside.y));
    EXPECT_LT(nearest, 1e-9) << rows[i].name;
  }
  EXPECT_TRUE(file->shape("carre"));
  EXPECT_FALSE(file->shape("ABSENT"));
}

TEST_F(Shapes, DamagedFilesHaveWhatCanBeRead) {
  const std::string whole = fileOf({{"UN", {0x10, 7, 1}}, {"DEUX", {9, 1, 0}}});
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::string cut = path + std::to_string(length);
    std::ofstream(cut, std::ios::binary) << whole.substr(0, length);
    if (const auto file = ShapeFile::of(cut)) file->shape(1), file->shape("DEUX");
    std::filesystem::remove(cut);
  }
  EXPECT_FALSE(ShapeFile::of(path)) << "no file";
}

}  // namespace
}  // namespace atelier::fonts
