// Lines a pixel or a few wide, set straight into a picture without smoothing: for screens that show so many that it
// doesn't matter, where smoothing each takes a hundred times as long.
#pragma once
#include <cstdint>

#include "atelier/render/primitives.h"

namespace atelier::render {

class Hairlines {
 public:
  // Pixels of 32 bits, 0xAARRGGBB in the machine's byte order, rows of `stride` bytes.
  Hairlines(unsigned char* pixels, int width, int height, int stride)
      : pixels_(pixels), width_(width), height_(height), stride_(stride) {}
  // The path in pixels, y downwards; `thickness` in pixels. What is outside or no number is left out.
  void stroke(const Path& path, const Colour& colour, int thickness);

 private:
  void line(Pt from, Pt to);

  unsigned char* pixels_;
  int width_, height_, stride_;
  std::uint32_t value_ = 0;
  int thickness_ = 1;
};

}  // namespace atelier::render
