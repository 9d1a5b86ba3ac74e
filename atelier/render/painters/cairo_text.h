// Glyph runs as text of their fonts on a Cairo surface, so that PDF and SVG hold each glyph once and PDF can
// be searched. Inner header of the room.
#pragma once

#include <cairo.h>

#include <map>
#include <memory>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

void setSource(cairo_t* context, const Colour& colour);

class EmbeddedFonts {
 public:
  // Shows the glyphs, without the bars; `map` maps the line's capital heights to the surface. False, and nothing is shown,
  // when the map is degenerate or a font can't be used.
  bool show(cairo_t* context, const fonts::TextLine& line, const Affine& map, const Colour& colour);

 private:
  using Face = std::unique_ptr<cairo_font_face_t, decltype(&cairo_font_face_destroy)>;
  cairo_font_face_t* face(const fonts::Face* face);
  std::map<const fonts::Face*, Face> faces_;
};

}  // namespace atelier::render
