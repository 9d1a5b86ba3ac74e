// Control codes of texts: what a drawing's string becomes before it is measured.
// Rows of stored text and expected characters; bars in their own rows.
#include "atelier/fonts/text_codes.h"

#include <gtest/gtest.h>

namespace atelier::fonts {
namespace {

std::string plain(std::string_view text) {
  std::string out;
  for (const TextRun& run : expandTextCodes(text)) out += encodeUtf8(run.text);
  return out;
}

TEST(TextCodes, StandForCharacters) {
  const struct {
    const char *stored, *shown;
  } rows[] = {
      {"%%c200", "∅200"},
      {"45%%D", "45°"},
      {"%%p0.01", "±0.01"},
      {"%%%", "%"},
      {"100%%%", "100%"},
      {"%%065B", "AB"},
      {"%%233t%%233", "été"},
      {"%%127%%128%%129", "°±∅"},
      {"\\U+00E9t\\u+00e9", "été"},
      {"\\U+2205", "∅"},
      {"50%", "50%"},
      {"%%", "%%"},
      {"%%z", "%%z"},
      {"%%12", "%%12"},
      {"%%999", "%%999"},
      {"\\U+D800", "\\U+D800"},
      {"\\U+12", "\\U+12"},
      {"", ""},
      {"%%uTN%%u projet", "TN projet"},
  };
  for (const auto& row : rows) EXPECT_EQ(plain(row.stored), row.shown) << row.stored;
}

TEST(TextCodes, BarsToggleAndCombine) {
  const auto runs = expandTextCodes("a%%ub%%oc%%Ud%%oe%%kf");
  ASSERT_EQ(runs.size(), 6u);
  const struct {
    bool under, over, strike;
  } rows[] = {{false, false, false}, {true, false, false},  {true, true, false},
              {false, true, false},  {false, false, false}, {false, false, true}};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(runs[i].underline, rows[i].under) << i;
    EXPECT_EQ(runs[i].overline, rows[i].over) << i;
    EXPECT_EQ(runs[i].strike, rows[i].strike) << i;
  }
}

TEST(Utf8, DecodesAndFallsBackToWindows1252) {
  const struct {
    const char* bytes;
    const char* utf8;
  } rows[] = {{"\xE9t\xE9", "été"},      {"\x80", "€"},      {"\xC3", "Ã"},
              {"\xE2\x82", "â‚"},        {"\xC0\x80", "À€"}, {"\xED\xA0\x80", "í\u00A0€"},
              {"\xF0\x9F\x98\x80", "😀"}, {"été €", "été €"}};
  for (const auto& row : rows) EXPECT_EQ(encodeUtf8(decodeUtf8(row.bytes)), row.utf8);
}

}  // namespace
}  // namespace atelier::fonts
