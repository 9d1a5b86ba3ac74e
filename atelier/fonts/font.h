// Text in a style: widths, ink extents and outlines of one line, in drawing units.
// The height of the capital H is the text height; no kerning, as in CAD texts, so that widths add up.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/fonts/face.h"
#include "atelier/fonts/path.h"
#include "atelier/fonts/text_codes.h"

namespace atelier::fonts {

struct FontStyle {
  std::string file = "txt";  // as the drawing's text style names it; a big font is not looked at
  double widthFactor = 1;    // 0 or not finite counts as 1
  double oblique = 0;        // radians from the upright, positive to the right, held within 85 degrees
  bool bold = false, italic = false;
};

// One glyph of a line; x of its pen in capital heights, before width factor and slant.
struct PlacedGlyph {
  const Glyph* glyph = nullptr;
  double x = 0;
};

// A line laid out in capital heights: baseline y = 0, pen starting at x = 0.
struct TextLine {
  std::vector<PlacedGlyph> glyphs;
  std::vector<Box> bars;  // under-, over- and strike-through bars
  double advance = 0;
};

// Ink of a line at its origin, drawing units. `ink` is empty when nothing is drawn (spaces, height 0).
struct TextExtents {
  Box ink;
  double advance = 0;
};

class Font {
 public:
  // Throws FontError only when no font at all is installed.
  explicit Font(const FontStyle& style);

  // Texts are UTF-8 as stored in a drawing: %% and \U+ codes are understood.
  TextLine layout(std::string_view text) const;
  TextLine layout(std::span<const TextRun> runs) const;

  // Capital heights to drawing units at a text height: scale, width factor, slant. A height that is not
  // positive and finite gives the zero map: nothing is measured, nothing drawn.
  Affine shape(double height) const;

  // Pen travel along the baseline, width factor applied, drawing units.
  double advance(std::string_view text, double height) const;
  // Exact ink of the text at origin (0,0), baseline 0: the width of `ink` is a text's natural width.
  TextExtents extents(std::string_view text, double height) const;
  TextExtents extents(const TextLine& line, double height) const;
  // Glyphs and bars as one outline in drawing units, nonzero fill.
  Path outline(std::string_view text, double height) const;

  const Face& face() const { return *face_; }

 private:
  const Face* face_;
  bool symbols_;  // letters stand for signs
  double widthFactor_, slant_;
};

// The rectangle as a closed path, anticlockwise.
Path rectangle(const Box& box);

}  // namespace atelier::fonts
