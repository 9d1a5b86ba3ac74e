// Measures of a text in its own frame: origin at the left end of its base line, x along it.
// The font comes from the text's style.
#pragma once
#include "atelier/fonts/font.h"
#include "hote/dbents.h"

class AcDbImpDatabase;

namespace atelier {

// The font of a text style by name, with the text's own width factor and slant (radians).
fonts::FontStyle fontStyle(AcDbImpDatabase* database, std::string_view styleName, double widthFactor, double oblique);

class MeasuredText {
 public:
  explicit MeasuredText(const AcDbText& text);
  bool isEmpty() const { return extents_.ink.empty(); }
  double left() const { return extents_.ink.xMin; }
  double right() const { return extents_.ink.xMax; }
  double bottom() const { return extents_.ink.yMin; }
  double top() const { return extents_.ink.yMax; }
  double width() const { return isEmpty() ? 0 : right() - left(); }
  // The place in the text that its alignment point holds.
  double anchorX(AcDb::TextHorzMode mode) const;
  double anchorY(const AcDbText& text) const;

 private:
  fonts::TextExtents extents_;
  double height_;
};

}  // namespace atelier
