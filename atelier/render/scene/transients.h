// Transient graphics (vectors of handlers, frames around entities) as part of a display list.
// Highlighted vectors are dashed.
#pragma once
#include "atelier/document/transients.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Appends the vectors, the latest on top. Colour 0 removes vectors drawn before at the same place.
void addTransients(DisplayList& list, const Transients& transients);

}  // namespace atelier::render
