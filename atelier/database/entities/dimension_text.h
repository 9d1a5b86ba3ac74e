// The number that the block of a dimension shows.
// Inner header of the room.
#pragma once
#include <string>

#include "atelier/database/objects/imp_object.h"

namespace atelier {

// A length that was scaled.
struct Scaled {
  double before, scale;
};

// The text with the number that tells the length put right: the first one behind the prefix. Its decimals, and the comma or
// point, stay, and so does the factor by which it was shown (metres in centimetres ...). Formatting codes of paragraphs
// aren't numbers. A text without the prefix or without a number is unchanged.
std::string renumbered(const std::string& text, const std::string& prefix, const Scaled& length);

// After a dimension was scaled, the texts of its block show what it measures now. Nothing is done for a dimension whose
// text was written by hand.
void updateDimensionText(AcDbStub& dimension, const std::string& block, const Scaled& length);

}  // namespace atelier
