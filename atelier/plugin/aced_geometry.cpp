// Plane geometry that the host offers to handlers.
// Lines count as parallel only when they are so to the last digit: for long, nearly parallel lines a handler gets the
// best point that can be computed. Parallel ones meet where they lie on one another.
#include <algorithm>
#include <optional>

#include "atelier/geometry/crossing.h"
#include "hote/acdb.h"

namespace {

constexpr double kRounding = 1e-15;  // relative rounding error of a sum of coordinates

void pointAt(const ads_point from, const ads_point to, double part, ads_point result) {
  for (int i = 0; i < 3; ++i) result[i] = from[i] + part * (to[i] - from[i]);
}

// Segments that lie on one another to the last digits cross at no definite point: they meet where they are nearest.
bool touch(const ads_point a, const ads_point b) {
  const double largest = std::max({std::fabs(a[0]), std::fabs(a[1]), std::fabs(b[0]), std::fabs(b[1])});
  return std::hypot(a[0] - b[0], a[1] - b[1]) <= 8 * kRounding * largest;
}

// The middle of what the segments from1-to1 and from2-to2 have in common, as a part of the first; nothing when they lie apart,
// beside one another or one after the other. Of whole lines (not onSegments) any point will do.
std::optional<double> commonPart(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2,
                                 bool onSegments) {
  const double ux = to1[0] - from1[0], uy = to1[1] - from1[1], square = ux * ux + uy * uy;
  if (square == 0) return std::nullopt;
  const auto partOf = [&](const ads_point p) { return ((p[0] - from1[0]) * ux + (p[1] - from1[1]) * uy) / square; };
  const double a = partOf(from2), b = partOf(to2);
  ads_point foot;
  pointAt(from1, to1, a, foot);
  if (!touch(foot, from2)) return std::nullopt;
  if (!onSegments) return 0.0;
  const double low = std::max(0.0, std::min(a, b)), high = std::min(1.0, std::max(a, b));
  if (low > high) return std::nullopt;
  return (low + high) / 2;
}

}  // namespace

int acdbInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2, int onSegments,
               ads_point result) {
  const auto parts = atelier::crossing(from1, to1, from2, to2, 0.0);
  if (!parts) {
    const auto part = commonPart(from1, to1, from2, to2, onSegments);
    if (part) pointAt(from1, to1, *part, result);
    return part ? RTNORM : RTERROR;
  }
  auto [s, t] = *parts;
  if (onSegments && !(atelier::onSegment(s) && atelier::onSegment(t))) {
    s = std::clamp(s, 0.0, 1.0);
    t = std::clamp(t, 0.0, 1.0);
    ads_point first, second;
    pointAt(from1, to1, s, first);
    pointAt(from2, to2, t, second);
    if (!touch(first, second)) return RTERROR;
  }
  pointAt(from1, to1, s, result);
  return RTNORM;
}
