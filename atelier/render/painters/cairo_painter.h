// Painting a display list on a Cairo surface: the one painter of PDF, SVG, PNG and in-memory pictures.
#pragma once

#include <cairo.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "atelier/render/painters/hairlines.h"
#include "atelier/render/shapes/inks.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Pixels with objects too small to have a shape: a pixel is marked once for all of them.
class TinyMarks {
 public:
  TinyMarks(int width, int height)
      : width_(width), height_(height), seen_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}
  // Marks the pixel at that place; false when it is outside or was marked before.
  bool mark(Pt at) {
    if (!(at.x >= 0 && at.y >= 0 && at.x < width_ && at.y < height_)) return false;
    const auto pixel =
        static_cast<std::size_t>(at.y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(at.x);
    return !std::exchange(seen_[pixel], std::uint8_t{1});
  }

 private:
  int width_, height_;
  std::vector<std::uint8_t> seen_;
};

struct PaintOptions {
  Affine toSurface;           // drawing units to surface units, y of the surface downwards
  double unitsPerMm = 1;      // surface units in a millimetre of paper
  Box clip;                   // surface units: nothing is painted outside
  double thinnest = 0;        // least width of a stroke, surface units
  double greekBelow = 0;      // texts with capitals lower than this, in surface units, become a line: for screens
  TinyMarks* tiny = nullptr;  // when set: objects smaller than a surface unit become a dot, once per place
  // When set, they belong to the same picture and draw its thin opaque lines without dashes. All is then painted from the
  // top down, each primitive beneath those already painted, and lists from the last to the first.
  Hairlines* hairlines = nullptr;
  std::function<void()> step;  // called before each primitive; may throw to stop
  // For files with layers: that of an object, and where what is painted next belongs; at the end to none.
  std::function<std::string(std::uint64_t source)> layerOf;
  std::function<void(const std::string& layer)> layer;
  // Of paths and texts given to Cairo, which keeps a kilobyte for each until the page of a PDF or SVG ends; then PlotError.
  std::size_t most = 0;     // 0: no limit
  bool embedFonts = false;  // texts as glyphs of their fonts: for PDF and SVG, smaller and searchable
  Colour foreground{0, 0, 0}, background{255, 255, 255};
  // Of opaque lines and texts to the background, see legible(); 0: as they are.
  double leastContrast = 0;
  Inks inks;
};

// Paints primitive by primitive, each over the ones before. Strokes alike that follow one another become one path: a
// picture then takes a tenth of the memory. The state of the context is restored at the end.
class Painting {
 public:
  Painting(cairo_t* context, const PaintOptions& options);
  ~Painting();
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;
  // Outside the clip it costs almost nothing.
  void item(const Primitive& primitive);
  // A picture is the same however its primitives are cut into lists.
  void list(const DisplayList& list);

 private:
  class Painter;
  cairo_t* context_;
  PaintOptions options_;
  std::unique_ptr<Painter> painter_;  // null: nothing is visible
};

// A whole list.
void paint(cairo_t* context, const DisplayList& list, const PaintOptions& options);

// A picture in memory, to paint on; see paintPicture. It begins transparent.
class PictureCanvas {
 public:
  PictureCanvas(unsigned char* pixels, int width, int height, int stride);
  ~PictureCanvas();
  PictureCanvas(const PictureCanvas&) = delete;
  PictureCanvas& operator=(const PictureCanvas&) = delete;
  cairo_t* context() const { return context_; }
  // Paints the background beneath everything.
  void ground(const Colour& colour);

 private:
  cairo_surface_t* surface_;
  cairo_t* context_;
};

// Paints on a picture in memory: width x height pixels of 32 bits, 0xAARRGGBB in the machine's byte order,
// rows of `stride` bytes; the former contents are covered with the background. Throws PlotError for impossible sizes.
void paintPicture(unsigned char* pixels, int width, int height, int stride, const DisplayList& list,
                  PaintOptions options);

}  // namespace atelier::render
