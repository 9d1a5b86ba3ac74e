// Single values between their bytes in a file and memory.
// A written value must be the same when read in every form.
#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "atelier/dxf/groups/value_codec.h"
#include "tests/dxf/drawing_files.h"

using namespace atelier;
using namespace atelier::dxf;

namespace {

TEST(Values, textsOfFiles) {
  const struct {
    const char* inFile;
    const char* text;
  } rows[] = {{"\\U+00E9", "é"},
              {"\\u+00e9", "é"},
              {"\\U+00E", "\\U+00E"},
              {"\\U+D83D\\U+DE00", "😀"},
              {"\\U+D83D", "\\U+D83D"},
              {"\\M+18140", "　"},
              {"\\M+58140", "丂"},
              {"\\M+91234", "\\M+91234"},
              {"a^Jb", "a\nb"},
              {"^ J", "^J"},
              {"^", "^"},
              {"2^3", "2^3"},
              {"C:\\Users", "C:\\Users"},
              {"%%c\\P", "%%c\\P"}};
  for (const auto& row : rows) EXPECT_EQ(textFromFile(row.inFile), row.text) << row.inFile;
}

TEST(Values, textsComeBack) {
  for (const char* page : {"ANSI_1252", "ANSI_1251", "ANSI_932", "DOS850", "UTF-8", "UNDEFINED"})
    for (const std::string text : {"Été 12.5", "Труба", "配管", "😀", "a\nb\tc", "^J", "", "\x01"}) {
      const CodePage codePage = CodePage::named(page);
      EXPECT_EQ(textFromFile(codePage.decode(codePage.encode(textToFile(text)))), text) << page;
    }
}

// Every code's value through ASCII and both binary forms.
TEST(Values, groupsComeBackInEveryForm) {
  std::mt19937_64 random(7);
  for (const Encoding encoding : {Encoding::ascii, Encoding::binary, Encoding::binaryOld})
    for (int code = 0; code <= 1071; ++code) {
      const Style style{encoding, "\n", CodePage::utf8()};
      const auto group = [&] {
        switch (kindOfCode(code)) {
          case GroupKind::real:
            return Group::real(code, std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 130));
          case GroupKind::integer:
            return Group::integer(code, binaryWidth(code) == 1 ? 1 : -static_cast<std::int64_t>(random() % 32768));
          case GroupKind::handle: return Group::handle(code, random());
          case GroupKind::binary: return Group::binary(code, std::string("\x00\x7f\xff\n", 4));
          default: return Group::text(code, "Été ^ \n\\");
        }
      }();
      std::string bytes;
      append(bytes, group, style);
      Scanner scanner(bytes, encoding, 0, bytes.size());
      RawGroup raw;
      ASSERT_TRUE(scanner.next(raw)) << code;
      EXPECT_TRUE(decode(raw, encoding, style.codePage).sameValue(group)) << code;
      EXPECT_FALSE(scanner.next(raw)) << code;
    }
}

TEST(Values, realsReadBackToTheSameDouble) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 20000; ++i) {
    const double value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    EXPECT_EQ(parseReal(realText(value)), value);
  }
  EXPECT_EQ(realText(12), "12.0");
  EXPECT_EQ(realText(0.1), "0.1");
  EXPECT_EQ(parseReal(" +1.5E+02 "), 150.0);
  EXPECT_EQ(parseReal("1,5"), std::nullopt);
}

// Too great is infinite and never 0, too small is 0, however they are written.
TEST(Values, realsBeyondTheirRange) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  const std::string zeros(400, '0'), digits(400, '7');
  const std::pair<std::string, std::optional<double>> rows[] = {{"1e400", kInfinite},
                                                                {"-1e400", -kInfinite},
                                                                {digits, kInfinite},
                                                                {"-" + digits + ".5", -kInfinite},
                                                                {"1e-400", 0.0},
                                                                {"0." + zeros + "1", 0.0},
                                                                {"0." + zeros + "1e400", 0.1},
                                                                {digits + "e-800", 0.0},
                                                                {"1e99999999999999999999", kInfinite},
                                                                {"1e-99999999999999999999", 0.0},
                                                                {"1e400x", std::nullopt},
                                                                {"1.7976931348623157e308", 1.7976931348623157e308}};
  for (const auto& [text, value] : rows) EXPECT_EQ(parseReal(text), value) << text;
  EXPECT_EQ(decode({70, "1e400"}, Encoding::ascii, CodePage::utf8()).kind(), GroupKind::text);  // no integer holds it
  EXPECT_EQ(decode({40, "1e400"}, Encoding::ascii, CodePage::utf8()).real(), kInfinite);
}

TEST(Values, lineEndsOfEveryKindAreFound) {
  for (std::size_t length = 0; length < 200; ++length) {
    const std::string text = "  0\r\n" + std::string(length, 'x') + "\r\n 10\n1.5";
    Scanner scanner(text, Encoding::ascii, 0, text.size());
    RawGroup raw;
    ASSERT_TRUE(scanner.next(raw));
    EXPECT_EQ(raw.value.size(), length);
    ASSERT_TRUE(scanner.next(raw));
    EXPECT_EQ(raw.code, 10);
    EXPECT_EQ(raw.value, "1.5");
    EXPECT_FALSE(scanner.next(raw));
  }
}

}  // namespace
