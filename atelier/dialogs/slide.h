// Slides: pictures of vectors that programs show in their dialogs.
// Reference: the DXF reference's chapter on slide files, "Slide File Format" and "Slide Library File Format".
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace atelier::dcl {

struct SlidePoint {
  int x, y;  // pixels of the screen that it was made on, upwards
};
// A line, or the outline of a filled area.
struct SlideShape {
  std::vector<SlidePoint> points;
  int colour = 7;
  bool filled = false;
};
struct Slide {
  int width = 0, height = 0;
  std::vector<SlideShape> shapes;
};

// Nothing for bytes that are no slide.
std::optional<Slide> readSlide(std::string_view bytes);
// The bytes of a slide in a library, by its name without regard to case; empty when there is none.
std::string_view slideInLibrary(std::string_view library, std::string_view name);

}  // namespace atelier::dcl
