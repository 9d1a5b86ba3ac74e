// Measures of a text in its own frame: origin at the start of its base line, x along it.
// The font comes from the text's style.
#pragma once
#include "atelier/database/records/record.h"
#include "atelier/fonts/mtext.h"
#include "hote/dbents.h"

class AcDbImpDatabase;

namespace atelier {

// The font of a text style by name, with the text's own width factor and slant (radians).
fonts::FontStyle fontStyle(AcDbImpDatabase* database, std::string_view styleName, double widthFactor, double oblique);
// The box of a paragraph's ink relative to its insertion point, x along its lines; empty when there is no ink.
fonts::Box paragraphInk(const AcDbMText& text);

// The columns of a paragraph, from the data that it carries behind its own groups.
fonts::MTextColumns columnsOf(const Record& paragraph);

class MeasuredText {
 public:
  explicit MeasuredText(const AcDbText& text);
  bool isEmpty() const { return extents_.ink.empty(); }
  double left() const { return backwards_ ? -extents_.ink.xMax : extents_.ink.xMin; }
  double right() const { return backwards_ ? -extents_.ink.xMin : extents_.ink.xMax; }
  double bottom() const { return upsideDown_ ? -extents_.ink.yMax : extents_.ink.yMin; }
  double top() const { return upsideDown_ ? -extents_.ink.yMin : extents_.ink.yMax; }
  bool backwards() const { return backwards_; }
  double width() const { return isEmpty() ? 0 : right() - left(); }
  // The x of the alignment point in the text's own frame.
  double anchorX(AcDb::TextHorzMode mode) const;
  double anchorY(const AcDbText& text) const;

 private:
  fonts::TextExtents extents_;
  double height_;
  bool backwards_, upsideDown_;  // mirrored about the start, about the base line
};

}  // namespace atelier
