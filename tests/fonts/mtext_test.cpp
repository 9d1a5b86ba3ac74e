// Paragraph texts: inline codes, wrapping, line pitch and attachment.
// A layout is read back as its pieces, left to right and top to bottom.
#include "atelier/fonts/mtext.h"

#include <gtest/gtest.h>

#include <cmath>

namespace atelier::fonts {
namespace {

MTextStyle style(int attachment = 1, double wrap = 0) {
  MTextStyle s;
  s.format.height = 2;
  s.attachment = attachment;
  s.wrapWidth = wrap;
  return s;
}

std::string words(std::string_view contents) {
  std::string out;
  for (const MTextToken& token : readMText(decodeUtf8(contents), {})) {
    if (token.kind == MTextToken::Kind::newline) out += '|';
    out += encodeUtf8(token.text);
    if (token.kind == MTextToken::Kind::stack) out += encodeUtf8(std::u32string(1, token.divider) + token.lower);
  }
  return out;
}

TEST(MText, CodesBecomeWords) {
  const struct {
    const char *contents, *words;
  } rows[] = {{"TN\\PProjet", "TN|Projet"},
              {"{\\fArial|b1|i0|c0|p34;Gras} maigre", "Gras maigre"},
              {"\\A1;\\C1;rouge\\C256; fin", "rouge fin"},
              {"a\\~b", "a\u00A0b"},
              {"\\\\ \\{x\\}", "\\ {x}"},
              {"\\S1/2; m", "1/2 m"},
              {"%%c200 \\U+00E9", "∅200 é"},
              {"a^Ib^Jc^ d", "a b|c^d"},
              {"\\pxqc,i2;centre", "centre"},
              {"\\H2.5x;\\W0.8;\\Q15;\\T1.2;x", "x"},
              {"}seule", "}seule"},
              {"\\", "\\"},
              {"\\Harrive", ""},
              {"\\Hzut;fin", "fin"}};
  for (const auto& row : rows) EXPECT_EQ(words(row.contents), row.words) << row.contents;
}

TEST(MText, FormatsApplyAndEndWithTheirBrace) {
  const auto tokens = readMText(U"{\\H3;\\C1;a}{\\H2x;\\c255;\\Lb\\lc}d", {});
  ASSERT_EQ(tokens.size(), 4u);
  EXPECT_EQ(tokens[0].format.height, 3);
  EXPECT_EQ(tokens[0].format.colourIndex, 1);
  EXPECT_EQ(tokens[1].format.height, 2);
  EXPECT_EQ(tokens[1].format.colourRgb, 0xFF0000u);
  EXPECT_TRUE(tokens[1].format.underline);
  EXPECT_FALSE(tokens[2].format.underline);
  EXPECT_EQ(tokens[3].format.height, 1);
  EXPECT_FALSE(tokens[3].format.colourIndex.has_value());
}

TEST(MText, LinesArePitchedFiveThirds) {
  MTextStyle s = style();
  s.lineSpacing = 1.5;
  const auto layout = layoutMText("H\\PH\\PH", s);
  ASSERT_EQ(layout.pieces.size(), 3u);
  EXPECT_NEAR(layout.pieces[0].map.y0, -2, 1e-9);
  EXPECT_NEAR(layout.pieces[1].map.y0, -2 - 2 * 5.0 / 3 * 1.5, 1e-9);
  EXPECT_NEAR(layout.height, 2 + 4 * 5.0 / 3 * 1.5, 1e-9);
  // A blank line keeps its room.
  EXPECT_NEAR(layoutMText("H\\P\\PH", s).height, layout.height, 1e-9);
}

TEST(MText, ColumnsTakeWhatFitsTheirHeight) {
  // Two lines of height 2 fit 5.5 (2 + 10 / 3), three don't.
  MTextStyle s = style();
  s.columns = {.count = 2, .width = 30, .gutter = 5, .heights = {5.5}};
  const auto startsOf = [&](const char* contents) {
    std::vector<std::pair<double, double>> starts;
    for (const MTextPiece& piece : layoutMText(contents, s).pieces) starts.emplace_back(piece.map.x0, piece.map.y0);
    return starts;
  };
  const double first = -2, second = -2 - 10.0 / 3, third = second - 10.0 / 3;
  using Starts = std::vector<std::pair<double, double>>;
  const auto expect = [](const Starts& found, const Starts& wanted, const char* what) {
    ASSERT_EQ(found.size(), wanted.size()) << what;
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_NEAR(found[i].first, wanted[i].first, 1e-9) << what << i;
      EXPECT_NEAR(found[i].second, wanted[i].second, 1e-9) << what << i;
    }
  };
  expect(startsOf("H\\PH\\PH\\PH\\PH"), {{0, first}, {0, second}, {35, first}, {35, second}, {35, third}},
         "the last takes the rest");
  expect(startsOf("H\\NH"), {{0, first}, {35, first}}, "a break");
  s.columns.fromRight = true;
  expect(startsOf("H\\NH"), {{35, first}, {0, first}}, "from the right");
  s.columns = {.count = 0, .width = 30, .gutter = 5, .heights = {2}};
  s.attachment = 3;
  expect(startsOf("H\\PH\\PH"),
         {{-100 + 30 - 2 * layoutMText("H", style()).width / 2, first},
          {-65 + 30 - layoutMText("H", style()).width, first},
          {-30 + 30 - layoutMText("H", style()).width, first}},
         "as many as it takes, attached at the right");
}

TEST(MText, LettersOfTheSymbolFontAreSigns) {
  MTextStyle s = style();
  const auto layout = layoutMText("{\\Fgdt;j}j", s);
  ASSERT_EQ(layout.pieces.size(), 2u);
  EXPECT_EQ(layout.pieces[0].line.glyphs[0].glyph->character, U'\u2316');
  EXPECT_EQ(layout.pieces[1].line.glyphs[0].glyph->character, U'j');
}

TEST(MText, AttachmentPlacesTheBlock) {
  const double width = layoutMText("HTTH", style()).width;
  for (int attachment = 1; attachment <= 9; ++attachment) {
    const auto layout = layoutMText("HTTH\\PH", style(attachment));
    const double height = 2 + 2 * 5.0 / 3;
    const int row = (attachment - 1) / 3, column = (attachment - 1) % 3;
    EXPECT_NEAR(layout.pieces[0].map.x0, -width * column / 2, 1e-9) << attachment;
    EXPECT_NEAR(layout.pieces[0].map.y0, -2 + height * row / 2, 1e-9) << attachment;
  }
}

TEST(MText, WrapsAtSpacesOnly) {
  const double word = layoutMText("profil", style()).width;
  const auto lines = [&](const char* contents, double wrap) {
    return static_cast<int>(std::lround((layoutMText(contents, style(1, wrap)).height / 2 - 1) / (5.0 / 3))) + 1;
  };
  EXPECT_EQ(lines("profil profil profil", 0), 1);
  EXPECT_EQ(lines("profil profil profil", 1.2 * word), 3);
  EXPECT_EQ(lines("profil profil profil", 2.6 * word), 2);
  EXPECT_EQ(lines("profilprofilprofil", 1.2 * word), 1);
  // A word in two formats is one word.
  EXPECT_EQ(lines("profil pro{\\C1;fil}", 1.8 * word), 2);
  EXPECT_LE(layoutMText("profil profil profil", style(1, 2.6 * word)).width, 2.6 * word);
}

TEST(MText, StackedFractionStandsAcrossTheLine) {
  const auto layout = layoutMText("\\S1/20;", style());
  ASSERT_EQ(layout.pieces.size(), 3u);
  EXPECT_GT(layout.pieces[0].map.y0, layout.pieces[1].map.y0 + 1);
  EXPECT_EQ(layout.pieces[2].line.bars.size(), 1u);
}

}  // namespace
}  // namespace atelier::fonts
