// Transient graphics (vectors of handlers, frames around entities) as part of a display list.
// Highlighted vectors are dashed.
#pragma once
#include "atelier/document/transients.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Appends the vectors, latest on top. Colour 0 takes away what was drawn before at the same place.
void addTransients(DisplayList& list, const Transients& transients);

}  // namespace atelier::render
