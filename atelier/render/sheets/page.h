// The sheet: size, orientation, scale, and the place of the drawing on it.
// Page coordinates are millimetres from the top left corner, y downwards.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// ISO 216 sheets; the long side first given by longMm.
struct Paper {
  std::string_view name;
  double shortMm, longMm;
};

constexpr double kLeastDpi = 10, kMostDpi = 2400;

struct PlotRequest {
  std::optional<double> scale;  // denominator of 1:n; none: fitted to the sheet
  std::optional<Paper> paper;   // none: the smallest sheet that holds the drawing at the scale, A4 when fitted
  std::optional<Box> window;    // drawing units; none: all that is drawn
  double marginMm = 10;
  double unitMm = 1000;  // millimetres of reality in one drawing unit
};

struct Page {
  double widthMm = 0, heightMm = 0;
  Affine toPage;                      // drawing units to page millimetres
  Box clipMm;                         // the part to print on, page millimetres
  Box view;                           // the same in drawing units
  double scale = 1;                   // denominator in force
  std::vector<std::string> warnings;  // French
};

// "1:200", "1/200", "200" or "fit" (none). Throws PlotError otherwise, as those below.
std::optional<double> parseScale(std::string_view text);
// "A4" to "A0", letter case ignored.
Paper parsePaper(std::string_view text);
// "x1,y1,x2,y2", any two opposite corners, drawing units; not of zero width or height.
Box parseWindow(std::string_view text);
// Points per inch of a picture, within the limits.
double parseDpi(std::string_view text);

// Landscape when the content is wider than high. The content is centred on the sheet. A drawing that doesn't fit the
// sheet asked for is cut at the margins, with a warning that names a scale and a sheet that would fit. When no sheet is
// asked for, a drawing larger than A0 gets a roll cut to length. Without content the sheet is blank, with a warning.
// Throws PlotError when no sheet is possible (a roll above 5 m, margins larger than the sheet).
Page layOutPage(const Box& content, const PlotRequest& request);

}  // namespace atelier::render
