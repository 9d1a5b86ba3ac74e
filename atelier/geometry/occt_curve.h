// A B-spline between our flat knots and Open CASCADE's distinct ones.
// Inner header of the room: the only one that shows the library.
#pragma once
#include <Geom_BSplineCurve.hxx>

#include "atelier/geometry/bspline.h"

namespace atelier {

// Knots nearer than this share of their range are one knot.
constexpr double kSameKnot = 1e-10;

// Throws Standard_Failure for data that the library refuses; call it on data that makesSense().
Handle(Geom_BSplineCurve) occtCurve(const Nurbs& curve);
// Clamped, never periodic.
Nurbs fromOcct(const Handle(Geom_BSplineCurve) & curve);

}  // namespace atelier
