// Rational B-splines: sampling within a chord bound, and interpolation. The work is Open CASCADE's.
// Points are in the drawing's units.
#pragma once
#include <span>
#include <vector>

#include "hote/ge.h"

namespace atelier {

// knots: flat, points + degree + 1 of them, not falling; weights: one for each point and positive, or none at
// all.
struct Nurbs {
  int degree = 3;
  std::vector<double> knots;
  std::vector<AcGePoint3d> points;
  std::vector<double> weights;
};

// Points along the curve, both ends included, no chord farther than `chord` from the curve (held above a
// billionth of the curve's size). Empty when the data make no curve: wrong counts, falling knots, a weight
// that is not positive, coordinates that are not finite, a degree outside 1 to 25. `parameters`, when there, is filled
// with those of the points.
std::vector<AcGePoint3d> sampleNurbs(const Nurbs& curve, double chord, std::vector<double>* parameters = nullptr);

// The smooth cubic through the points, in order; a point equal to the one before is left out. The result has no
// points when fewer than two are left. Tangents are used when both are given.
Nurbs interpolateNurbs(std::span<const AcGePoint3d> through, bool closed, const AcGeVector3d& startTangent = {},
                       const AcGeVector3d& endTangent = {});

// Whether the data make a curve, by the rules of sampleNurbs.
bool makesSense(const Nurbs& curve);
// The bounds of the parameter of data that make sense: knots[degree] and knots[points].
double firstParameter(const Nurbs& curve);
double lastParameter(const Nurbs& curve);

// All of these give data without points for data that make no curve.
// The part from one parameter to a greater one; the parameter stays the same along it.
Nurbs partOf(const Nurbs& curve, double from, double to);
// The same curve run through backwards, over the same bounds.
Nurbs reversed(const Nurbs& curve);
// The first curve followed by the second, which begins where the first ends: its first point is dropped. The degree is
// the greater of the two, and the second's parameter is shifted and stretched so that the speed is the same on both
// sides of the joint, where that is possible.
Nurbs joined(const Nurbs& first, const Nurbs& second);

}  // namespace atelier
