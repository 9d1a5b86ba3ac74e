// The circle of a radius that touches two curves.
// Inner header of the room.
#pragma once
#include <optional>

#include "hote/dbents.h"

namespace atelier {

// What a circle touches: the line through two points, or a circle. In plan.
struct Touched {
  AcGePoint2d a, b;
  double radius = 0;  // above 0: the circle around a
};
// The line, arc or circle at a place of a curve, of a polyline its segment there; nothing for other curves.
std::optional<Touched> touchedAt(const AcDbCurve& curve, const AcGePoint3d& place);

// The centre of the circle that touches both nearest to the places where they were picked.
std::optional<AcGePoint2d> tangentCentre(const Touched& first, const AcGePoint2d& nearFirst, const Touched& second,
                                         const AcGePoint2d& nearSecond, double radius);

}  // namespace atelier
