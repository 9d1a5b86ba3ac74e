// Lines a pixel or a few wide, set straight into a picture without smoothing: for screens that show so many that it
// doesn't matter, where smoothing each takes a hundred times as long. A picture is painted from the top down, each line
// beneath what is there already: most of a crowd is hidden and passed over in pieces.
#pragma once
#include <cstdint>
#include <vector>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

class Hairlines {
 public:
  // Pixels of 32 bits, 0xAARRGGBB in the machine's byte order, colours multiplied by their alpha, rows of `stride`
  // bytes. Whoever paints beside may only add to their alpha.
  Hairlines(unsigned char* pixels, int width, int height, int stride);
  // The path as `map` takes it to pixels, y downwards; `thickness` in pixels. What is outside or no number is left out.
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
  std::vector<std::uint16_t> open_;  // for each tile: pixels that were not seen opaque yet
  std::uint32_t value_ = 0;
  int thickness_ = 1;
};

}  // namespace atelier::render
