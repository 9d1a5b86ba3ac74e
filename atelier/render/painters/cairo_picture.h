// Pixels on a Cairo surface. Inner header of the room.
#pragma once

#include <cairo.h>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Paints the picture where `map` maps its pixels to the surface; the context is left transformed. Nothing for a map without
// an inverse.
void paintPixels(cairo_t* context, const Raster& raster, const Affine& map);

}  // namespace atelier::render
