// Lines one or a few pixels wide, drawn into a picture without smoothing, which would take a hundred times as long: for
// views with so many lines that it makes no difference. The picture is painted from the top down, each line beneath
// those already there: where many lines overlap most are hidden, and hidden stretches are skipped.
#pragma once
#include <cstdint>
#include <vector>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

class Hairlines {
 public:
  // Pixels of 32 bits, 0xAARRGGBB in the machine's byte order, colours multiplied by their alpha, rows of `stride`
  // bytes. Other painting on the same picture may only increase their alpha.
  Hairlines(unsigned char* pixels, int width, int height, int stride);
  // `map` maps the path to pixels, y downwards; `thickness` is in pixels. Parts outside or not finite are left out.
  void stroke(const Path& path, const Affine& map, const Colour& colour, int thickness);

 private:
  using Fixed = std::int64_t;
  void line(Pt from, Pt to);
  void setPixels(Fixed x, Fixed y, Fixed xStep, Fixed yStep, int count);
  bool isHidden(Fixed x1, Fixed y1, Fixed x2, Fixed y2) const;
  bool isOutside(Fixed column, Fixed row) const { return column < 0 || row < 0 || column >= width_ || row >= height_; }
  std::size_t tile(Fixed column, Fixed row) const;

  unsigned char* pixels_;
  int width_, height_, stride_, tilesAcross_;
  std::vector<std::uint16_t> open_;  // for each tile: pixels not known to be opaque
  std::uint32_t value_ = 0;
  int thickness_ = 1;
};

}  // namespace atelier::render
