// Smooths polylines. The tangents are those of circles through three neighbouring vertices; the curve of a frame is
// evaluated with de Boor's algorithm.
#include "atelier/shaping/polyline_smoothing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace atelier {
namespace {

using Vertices = std::vector<PolylineVertex>;

AcGeVector2d tangentAt(const Vertices& list, std::size_t i, bool closed) {
  const std::size_t count = list.size();
  const bool first = i == 0 && !closed, last = i + 1 == count && !closed;
  if (count < 3) return list[1].point - list[0].point;
  const AcGePoint2d &a = list[first  ? 0
                              : last ? count - 3
                                     : (i + count - 1) % count]
                             .point,
                    &b = list[first  ? 1
                              : last ? count - 2
                                     : i]
                             .point,
                    &d = list[first  ? 2
                              : last ? count - 1
                                     : (i + 1) % count]
                             .point;
  const AcGeVector2d u = b - a, v = d - b;
  // On the circle through three points the turn between the chords divides in proportion to their lengths.
  const double turn = std::remainder(v.angle() - u.angle(), 2 * std::numbers::pi);
  const double share = u.length() / (u.length() + v.length());
  const double angle = first  ? u.angle() - turn * share
                       : last ? v.angle() + turn * (1 - share)
                              : u.angle() + turn * share;
  return {std::cos(angle), std::sin(angle)};
}

double bulgeTo(const AcGeVector2d& tangent, const AcGeVector2d& chord) {
  return std::tan(std::remainder(chord.angle() - tangent.angle(), 2 * std::numbers::pi) / 2);
}

}  // namespace

Vertices fittedByArcs(const Vertices& list, bool closed) {
  Vertices made;
  const std::size_t count = list.size();
  for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
    const AcGePoint2d &a = list[i].point, &b = list[(i + 1) % count].point;
    const AcGeVector2d t0 = tangentAt(list, i, closed), t1 = tangentAt(list, (i + 1) % count, closed), chord = b - a;
    const AcGeVector2d sum = t0 + t1;
    // Both legs are equally long: the joint is halfway between the points at that distance along the two tangents.
    const double q = 2 * (1 - t0.dotProduct(t1)), p = chord.dotProduct(sum), square = chord.dotProduct(chord);
    const double leg = q < 1e-12 ? square / (2 * p) : (-p + std::sqrt(p * p + q * square)) / q;
    const AcGePoint2d joint = a + (chord + (t0 - t1) * leg) * 0.5;
    PolylineVertex begin = list[i], middle = list[i];
    begin.bulge = bulgeTo(t0, joint - a);
    middle.point = joint;
    middle.bulge = -bulgeTo(AcGeVector2d(-t1.x, -t1.y), a + (joint - a) - b);
    if (!std::isfinite(begin.bulge) || !std::isfinite(middle.bulge) || !std::isfinite(joint.x)) begin.bulge = 0;
    made.push_back(begin);
    if (std::isfinite(joint.x) && std::isfinite(middle.bulge)) made.push_back(middle);
  }
  if (!closed) made.push_back(list.back());
  return made;
}

Vertices framedCurve(const Vertices& list, bool closed, int degree, int chords) {
  const int count = static_cast<int>(list.size());
  degree = std::min(degree, count - 1);
  std::vector<double> knots;
  const int points = closed ? count + degree : count;
  for (int i = 0; i <= points + degree; ++i) knots.push_back(closed ? i : std::clamp(i - degree, 0, points - degree));
  const auto at = [&](double t) {
    int span = degree;
    while (span + 1 < points && t >= knots[static_cast<std::size_t>(span) + 1]) ++span;
    std::vector<AcGePoint2d> p;
    for (int i = 0; i <= degree; ++i) p.push_back(list[static_cast<std::size_t>((span - degree + i) % count)].point);
    for (int r = 1; r <= degree; ++r)
      for (int i = degree; i >= r; --i) {
        const double low = knots[static_cast<std::size_t>(span - degree + i)],
                     high = knots[static_cast<std::size_t>(span + 1 + i - r)];
        const double part = high > low ? (t - low) / (high - low) : 0;
        const auto k = static_cast<std::size_t>(i);
        p[k] = p[k - 1] + (p[k] - p[k - 1]) * part;
      }
    return p[static_cast<std::size_t>(degree)];
  };
  const double from = knots[static_cast<std::size_t>(degree)], to = knots[static_cast<std::size_t>(points)];
  const int steps = chords * (closed ? count : count - 1);
  Vertices made;
  for (int i = 0; i < steps + (closed ? 0 : 1); ++i) {
    PolylineVertex v;
    v.point = i == steps ? list.back().point : at(from + (to - from) * i / steps);
    made.push_back(v);
  }
  return made;
}

}  // namespace atelier
