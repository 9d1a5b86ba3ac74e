// Laying out a paragraph text (MTEXT): lines, wrapping, attachment.
// The result is in drawing units around the insertion point, before the rotation of the text.
#pragma once

#include <string_view>
#include <vector>

#include "atelier/fonts/mtext_codes.h"

namespace atelier::fonts {

// Columns side by side. A line that doesn't fit a column's height goes to the next one; the last takes all that is left.
struct MTextColumns {
  std::size_t count = 1;  // 0: as many as the text fills
  double width = 0, gutter = 0;
  std::vector<double> heights;  // by column, the last also of those after it; 0: as high as the text
  bool fromRight = false;
};

struct MTextStyle {
  MTextFormat format;         // from the text style: font, height
  double wrapWidth = 0;       // lines are broken at spaces beyond it; 0 or less: never
  int attachment = 1;         // group 71: 1..3 top, 4..6 middle, 7..9 bottom; left, centre, right
  double lineSpacing = 1;     // group 44; a line is 5/3 of the text height times this
  bool exactSpacing = false;  // group 73 = 2: a taller text does not push lines apart
  MTextColumns columns = {};  // of more than one the wrap width is theirs
};

// Glyphs of one format at a place; map takes the line's capital heights to drawing units.
struct MTextPiece {
  TextLine line;
  Affine map;
  MTextFormat format;
};

struct MTextLayout {
  std::vector<MTextPiece> pieces;
  Box ink;                       // exact, of all pieces
  double width = 0, height = 0;  // of the longest line; from the top of the capitals to the last baseline
};

// Contents as in groups 3 and 1 of the entity, joined, UTF-8. Never fails on bad codes (see readMText).
MTextLayout layoutMText(std::string_view contents, const MTextStyle& style);

}  // namespace atelier::fonts
