// Where two lines in plan cross. Inner to the two sides of the command line: AutoLISP's inters, and acdbInters.
// Each line is given by two points; points are arrays of at least two reals.
#pragma once
#include <array>
#include <cmath>
#include <optional>

namespace atelier {

inline constexpr double kOnSegment = 1e-9;  // by how much, in parts of the segment, an end may be passed

// The place of the crossing on each of the lines a-b and c-d: 0 at the first point, 1 at the second. Nothing when the
// sine of the angle between them is not above `parallel`.
template <class POINT>
std::optional<std::array<double, 2>> crossing(const POINT& a, const POINT& b, const POINT& c, const POINT& d,
                                              double parallel) {
  using real = long double;  // lines that lie almost one on the other leave no digit of a double to their crossing
  const real ux = real(b[0]) - a[0], uy = real(b[1]) - a[1], vx = real(d[0]) - c[0], vy = real(d[1]) - c[1];
  const real wx = real(c[0]) - a[0], wy = real(c[1]) - a[1], cross = ux * vy - uy * vx;
  if (!(std::fabs(cross) > parallel * std::hypot(ux, uy) * std::hypot(vx, vy))) return std::nullopt;
  return std::array<double, 2>{static_cast<double>((wx * vy - wy * vx) / cross),
                               static_cast<double>((wx * uy - wy * ux) / cross)};
}

inline bool onSegment(double part) { return part >= -kOnSegment && part <= 1 + kOnSegment; }

}  // namespace atelier
