// Colours that can be told from their ground. Source: Web Content Accessibility Guidelines 2.1, "contrast ratio" and
// "relative luminance".
#pragma once

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Between 1, for two colours alike, and 21, for black and white.
double contrast(const Colour& a, const Colour& b);

// The colour itself where it has the contrast, else mixed with as much white, on a dark ground, or black as it needs.
Colour legible(const Colour& colour, const Colour& ground, double least);

}  // namespace atelier::render
