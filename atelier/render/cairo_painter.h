// Painting a display list on a Cairo surface: the one painter of PDF, SVG, PNG and in-memory pictures.
#pragma once

#include <cairo.h>

#include "atelier/render/primitives.h"

namespace atelier::render {

struct PaintOptions {
  Affine toSurface;       // drawing units to surface units, y of the surface downwards
  double unitsPerMm = 1;  // surface units in a millimetre of paper
  Box clip;               // surface units: nothing is painted outside
  double thinnest = 0;    // least width of a stroke, surface units
  double greekBelow = 0;  // texts with capitals lower than this, in surface units, become a line: for screens
  bool embedFonts = false;  // texts as glyphs of their fonts: for PDF and SVG, smaller and searchable
  Colour foreground{0, 0, 0}, background{255, 255, 255};
};

// Leaves the state of the context as it was. Primitives outside the clip cost next to nothing.
void paint(cairo_t* context, const DisplayList& list, const PaintOptions& options);

// Paints on a picture in memory: width x height pixels of 32 bits, 0xAARRGGBB in the machine's byte order,
// rows of `stride` bytes; what stood there is covered with the background. Throws PlotError when the sizes
// make no picture.
void paintPicture(unsigned char* pixels, int width, int height, int stride, const DisplayList& list,
                  PaintOptions options);

}  // namespace atelier::render
