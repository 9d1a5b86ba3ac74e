// The definition points of a dimension by its kind (group 70, lowest three bits).
#include "atelier/database/entities/measured_dimension.h"

#include <cmath>
#include <numbers>

namespace atelier {

std::optional<double> measured(const Record& dimension) {
  constexpr int kLinear = 0, kAligned = 1, kDiameter = 3, kRadius = 4, kOrdinate = 6, kKinds = 7, kAbscissa = 64;
  const auto point = [&](int code) {
    for (const std::string_view mark :
         {"AcDbAlignedDimension", "AcDbRadialDimension", "AcDbDiametricDimension", "AcDbOrdinateDimension"})
      if (const Field field = pointField(mark, code); dimension.has(field)) return dimension.point(field);
    return dimension.point(pointField("AcDbDimension", code));
  };
  const std::int64_t flags = dimension.integer(integerField("AcDbDimension", 70));
  switch (flags & kKinds) {
    case kLinear: {
      // Programs write the angle before the mark of rotated dimensions or behind it.
      const Field before = realField("AcDbAlignedDimension", 50), behind = realField("AcDbRotatedDimension", 50);
      const double angle = dimension.real(dimension.has(before) ? before : behind) * std::numbers::pi / 180;
      const AcGeVector3d across = point(14) - point(13);
      return std::abs(across.x * std::cos(angle) + across.y * std::sin(angle));
    }
    case kAligned: return (point(14) - point(13)).length();
    case kDiameter:
    case kRadius: return (point(15) - point(10)).length();
    case kOrdinate: {
      const AcGeVector3d from = point(13) - point(10);
      return std::abs(flags & kAbscissa ? from.x : from.y);
    }
    default: return std::nullopt;
  }
}

}  // namespace atelier
