// The block that shows a dimension.
#pragma once
#include "hote/dbents.h"

namespace atelier {

// Gives a dimension that stands in a drawing and is open for writing a new block made from its points and its style, and
// notes the place of its text and what it measures. False when its points can't be a dimension.
bool drawDimensionBlock(AcDbDimension& dimension);

// The settings of the drawing that differ from those of the dimension's style become the dimension's own.
void takeDimensionSettings(AcDbDimension& dimension);

}  // namespace atelier
