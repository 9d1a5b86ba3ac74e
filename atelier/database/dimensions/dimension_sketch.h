// Collects the parts of a dimension in its own plane.
// Inner header of the room. Sizes come from the style; angles are in radians.
#pragma once
#include <vector>

#include "atelier/database/dimensions/dimension_style.h"
#include "hote/ge.h"

namespace atelier {

class DimensionSketch {
 public:
  DimensionSketch(AcDbImpDatabase& database, const DimensionStyle& style, const AcGeVector3d& normal, double elevation)
      : database_(database), style_(style), normal_(normal), elevation_(elevation) {}

  void extension(const AcGePoint2d& from, const AcGePoint2d& to) { line(from, to, "DIMCLRE"); }
  void line(const AcGePoint2d& from, const AcGePoint2d& to) { line(from, to, "DIMCLRD"); }
  // A line that leaves out where the text stands on it.
  void lineBesideText(const AcGePoint2d& from, const AcGePoint2d& to);
  // Anticlockwise.
  void arc(const AcGePoint2d& centre, double radius, double from, double to);
  // An arrow with its tip there that points along a direction; a tick or a dot where the style has one.
  void arrow(const AcGePoint2d& tip, const AcGeVector2d& along);
  // Once, before lines beside it.
  void text(const std::string& contents, const AcGePoint2d& middle, double angle, int attachment);
  double textWidth(const std::string& contents) const;

  std::vector<Record> parts;

 private:
  void line(const AcGePoint2d& from, const AcGePoint2d& to, std::string_view colour);
  Record& add(std::string_view type, std::string_view colour);
  AcGePoint3d world(const AcGePoint2d& point) const;

  AcDbImpDatabase& database_;
  const DimensionStyle& style_;
  AcGeVector3d normal_;
  double elevation_;
  AcGePoint2d textMiddle_;
  AcGeVector2d textDirection_;
  double textHalfWidth_ = 0, textHalfHeight_ = 0;
};

}  // namespace atelier
