// Slides made byte by byte, with each kind of record; damaged ones end where they are damaged.
#include "atelier/dialogs/slide.h"

#include <gtest/gtest.h>

namespace atelier::dcl {
namespace {

using namespace std::string_literals;

// 640 by 480 pixels.
const std::string kHeader =
    "AutoCAD Slide\r\n\x1a\0"s + "\x56\x02"s + "\x80\x02\xe0\x01"s + "\x55\x13\x9a\x00\x02\x00\x34\x12"s;
const std::string kLine = "\x0a\x00\x14\x00\x2c\x01\xc8\x00"s;  // 10,20 300,200
const std::string kRed = "\x01\xff"s, kEnd = "\x00\xfc"s;
const std::string kShort = "\x05\xfb\xfb\x0a\x0a"s;  // 15,15 20,30
const std::string kOneEnd = "\xfb\xfe\x05"s;         // 15,15 10,20
const std::string kArea =
    "\x03\xfd\x03\x00\xff\xff\x00\xfd\x00\x00\x00\x00\x00\xfd\x0a\x00\x00\x00\x00\xfd\x0a\x00\x05\x00\x00\xfd\x03\x00\xff\xff"s;

std::vector<std::vector<int>> shapesOf(const std::string& bytes) {
  std::vector<std::vector<int>> shapes;
  const auto slide = readSlide(bytes);
  if (!slide) return {{-1}};
  for (const SlideShape& shape : slide->shapes) {
    std::vector<int>& numbers = shapes.emplace_back(std::vector<int>{shape.colour, shape.filled});
    for (const SlidePoint& p : shape.points) numbers.insert(numbers.end(), {p.x, p.y});
  }
  return shapes;
}

using Shapes = std::vector<std::vector<int>>;

TEST(Slides, EveryKindOfRecord) {
  ASSERT_EQ(31U, kHeader.size());
  const auto slide = readSlide(kHeader + kEnd);
  ASSERT_TRUE(slide);
  EXPECT_EQ(std::pair(640, 480), std::pair(slide->width, slide->height));
  EXPECT_EQ((Shapes{{7, 0, 10, 20, 300, 200},
                    {1, 0, 15, 15, 20, 30},
                    {1, 0, 15, 15, 10, 20},
                    {1, 1, 0, 0, 10, 0, 10, 5},
                    {1, 0, 10, 20, 300, 200}}),
            shapesOf(kHeader + kLine + kRed + kShort + kOneEnd + kArea + kLine + kEnd + kLine));
}

TEST(Slides, DamagedOnesEndWhereTheyAreDamaged) {
  EXPECT_EQ((Shapes{{7, 0, 10, 20, 300, 200}}), shapesOf(kHeader + kLine + kLine.substr(0, 5)));
  EXPECT_EQ((Shapes{{7, 0, 10, 20, 300, 200}}), shapesOf(kHeader + kLine + "\x00\xf0"s + kLine));
  EXPECT_EQ((Shapes{{-1}}), shapesOf("AutoCAD Slide\r\n"));
  EXPECT_EQ((Shapes{{-1}}), shapesOf(""));
}

TEST(Slides, Libraries) {
  const std::string name("Vanne"), padded = name + std::string(32 - name.size(), '\0');
  const std::string library = "AutoCAD Slide Library 1.0\r\n\x1a\0\0\0\0"s + padded + "\x68\0\0\0"s +
                              std::string(36, '\0') + kHeader + kLine + kEnd;
  EXPECT_EQ((Shapes{{7, 0, 10, 20, 300, 200}}), shapesOf(std::string(slideInLibrary(library, "VANNE"))));
  EXPECT_TRUE(slideInLibrary(library, "regard").empty());
  EXPECT_TRUE(slideInLibrary(kHeader, "vanne").empty());
}

}  // namespace
}  // namespace atelier::dcl
