// The colour table of drawings: AutoCAD Color Index 1 to 255 in red, green, blue.
#pragma once

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// 1..9 the named colours (7 the foreground), 10..249 twenty-four hues in ten shades, 250..255 greys.
// Any other index gives the foreground.
Colour aciColour(int index);

// The index that comes nearest.
int indexOf(const Colour& colour);

// 0xRRGGBB, as in group 420.
Colour trueColour(std::uint32_t rgb);

// The colour of a record with both: the true one, but white beside index 7 (or beside none, 256) is the foreground, as
// programs write colour 7 so; on paper it would be white.
Colour trueColour(std::uint32_t rgb, std::int64_t index);

}  // namespace atelier::render
