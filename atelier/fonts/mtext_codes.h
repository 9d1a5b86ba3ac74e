// The inline codes of paragraph texts (MTEXT): contents in, styled pieces out.
// Codes as in the MTEXT group 1 of the DXF reference: \P \N \~ \\ \{ \} {} \f \F \H \C \c \S \L \O \K \W \Q \A
// \p.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/fonts/font.h"

namespace atelier::fonts {

struct MTextFormat {
  FontStyle font;
  double height = 1;                       // drawing units
  std::optional<int> colourIndex;          // \C: 0 by block, 1..255, 256 by layer
  std::optional<std::uint32_t> colourRgb;  // \c: 0xRRGGBB
  bool underline = false, overline = false, strike = false;
};

// A piece is a stretch of one format without a space inside, a space, a stack, a line break or a column break.
struct MTextToken {
  enum class Kind { word, space, stack, newline, column };
  Kind kind = Kind::word;
  std::u32string text;   // the word; the upper part of a stack
  std::u32string lower;  // of a stack
  char32_t divider = 0;  // of a stack: / with a bar, # slanted, ^ none
  char32_t align = 0;    // paragraph alignment in force: l c r j d, 0 from the attachment
  MTextFormat format;
};

// Codes that are not known are dropped with their parameter up to the semicolon; a bad number leaves the
// format as it was.
std::vector<MTextToken> readMText(std::u32string_view contents, const MTextFormat& start);

}  // namespace atelier::fonts
