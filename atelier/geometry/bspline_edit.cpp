// B-splines cut, reversed and joined: Open CASCADE changes the knots, the joint is made here.
// Reference: Piegl and Tiller, "The NURBS Book", chapter 5.
#include <Standard_Failure.hxx>
#include <algorithm>
#include <cmath>

#include "atelier/geometry/occt_curve.h"

namespace atelier {

namespace {

template <class EDIT>
Nurbs edited(const Nurbs& curve, EDIT edit) {
  if (!makesSense(curve)) return {};
  try {
    const Handle(Geom_BSplineCurve) spline = occtCurve(curve);
    edit(*spline);
    return fromOcct(spline);
  } catch (const Standard_Failure&) {
    return {};
  }
}

Nurbs raised(const Nurbs& curve, int degree) {
  return edited(curve, [&](Geom_BSplineCurve& c) {
    c.Segment(c.FirstParameter(), c.LastParameter());
    if (degree > c.Degree()) c.IncreaseDegree(degree);
  });
}

void makeRational(Nurbs& curve) {
  if (curve.weights.empty()) curve.weights.assign(curve.points.size(), 1.0);
}

// The ratio by which the second parameter is stretched: speeds at the joint, from the end polygons.
double speedRatio(const Nurbs& a, const Nurbs& b) {
  const std::size_t n = a.points.size(), d = static_cast<std::size_t>(a.degree);
  const auto weight = [](const Nurbs& c, std::size_t i) { return c.weights.empty() ? 1.0 : c.weights[i]; };
  const double before =
      a.points[n - 1].distanceTo(a.points[n - 2]) * weight(a, n - 2) / weight(a, n - 1) / (a.knots[n] - a.knots[n - 1]);
  const double after =
      b.points[1].distanceTo(b.points[0]) * weight(b, 1) / weight(b, 0) / (b.knots[d + 1] - b.knots[d]);
  const double ratio = after / before;
  return std::isfinite(ratio) && ratio > 1e-6 && ratio < 1e6 ? ratio : 1.0;
}

}  // namespace

double firstParameter(const Nurbs& curve) { return curve.knots[static_cast<std::size_t>(curve.degree)]; }
double lastParameter(const Nurbs& curve) { return curve.knots[curve.points.size()]; }

namespace {

// A cut nearer to a knot than knots are told apart is moved to the knot: it would leave a span without length.
double atKnot(const Nurbs& curve, double t) {
  const double hair = kSameKnot * (curve.knots.back() - curve.knots.front());
  const auto near =
      std::find_if(curve.knots.begin(), curve.knots.end(), [&](double knot) { return std::abs(knot - t) <= hair; });
  return near == curve.knots.end() ? t : *near;
}

}  // namespace

Nurbs partOf(const Nurbs& curve, double from, double to) {
  if (!makesSense(curve)) return {};
  from = atKnot(curve, from), to = atKnot(curve, to);
  if (!(from < to)) return {};
  return edited(curve, [&](Geom_BSplineCurve& c) {
    c.Segment(std::max(from, c.FirstParameter()), std::min(to, c.LastParameter()), 1e-12);
  });
}

Nurbs reversed(const Nurbs& curve) {
  Nurbs out = curve;
  if (!makesSense(curve)) return {};
  std::reverse(out.points.begin(), out.points.end());
  std::reverse(out.weights.begin(), out.weights.end());
  std::reverse(out.knots.begin(), out.knots.end());
  const double sum = firstParameter(curve) + lastParameter(curve);
  for (double& knot : out.knots) knot = sum - knot;
  return out;
}

Nurbs joined(const Nurbs& first, const Nurbs& second) {
  if (!makesSense(first) || !makesSense(second)) return {};
  const int degree = std::max(first.degree, second.degree);
  Nurbs a = raised(first, degree), b = raised(second, degree);
  if (a.points.empty() || b.points.empty()) return {};
  if (!a.weights.empty() || !b.weights.empty()) {
    makeRational(a);
    makeRational(b);
    const double same = a.weights.back() / b.weights.front();
    for (double& w : b.weights) w *= same;
    a.weights.insert(a.weights.end(), b.weights.begin() + 1, b.weights.end());
  }
  const double ratio = speedRatio(a, b), origin = b.knots.front(), shift = a.knots.back();
  a.knots.pop_back();
  for (std::size_t i = static_cast<std::size_t>(degree) + 1; i < b.knots.size(); ++i)
    a.knots.push_back(shift + (b.knots[i] - origin) * ratio);
  a.points.insert(a.points.end(), b.points.begin() + 1, b.points.end());
  a.degree = degree;
  return a;
}

}  // namespace atelier
