// Geometry on lists of numbers: distance, angle, polar, inters.
#include <cmath>
#include <numbers>

#include "atelier/geometry/crossing.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

constexpr double kParallel = 1e-12;  // sine below which two directions count as parallel

// The distance in plan when one of the points has no z.
Value distance(Interpreter& in, Arguments arguments) {
  const auto a = pointArgument(in, arguments[0]), b = pointArgument(in, arguments[1]);
  const bool flat = !arguments[0].cdr().cdr() || !arguments[1].cdr().cdr();
  return Value::real(std::hypot(b[0] - a[0], b[1] - a[1], flat ? 0.0 : b[2] - a[2]));
}

// From the X axis, counter-clockwise, in [0, 2 pi); heights do not count.
Value angle(Interpreter& in, Arguments arguments) {
  const auto a = pointArgument(in, arguments[0]), b = pointArgument(in, arguments[1]);
  const double radians = std::atan2(b[1] - a[1], b[0] - a[0]);
  return Value::real(radians < 0 ? radians + 2 * std::numbers::pi : radians + 0.0);
}

Value polar(Interpreter& in, Arguments arguments) {
  const auto point = pointArgument(in, arguments[0]);
  const double radians = numberArgument(in, arguments[1]), length = numberArgument(in, arguments[2]);
  const double x = point[0] + length * std::cos(radians), y = point[1] + length * std::sin(radians);
  return arguments[0].cdr().cdr() ? in.point(x, y, point[2]) : in.point(x, y);
}

// The intersection of the lines 1-2 and 3-4: on both segments, or anywhere when the fifth argument is nil. When all
// points have heights the lines must meet in space; when one has none, they are compared in plan.
Value intersection(Interpreter& in, Arguments arguments) {
  std::array<std::array<double, 3>, 4> p;
  bool flat = false;
  for (std::size_t i = 0; i < 4; ++i) {
    p[i] = pointArgument(in, arguments[i]);
    flat |= !arguments[i].cdr().cdr();
  }
  const auto parts = crossing(p[0], p[1], p[2], p[3], kParallel);
  const bool onSegments = arguments.size() < 5 || arguments[4];
  if (!parts || (onSegments && !(onSegment((*parts)[0]) && onSegment((*parts)[1])))) return nil;
  const auto [s, t] = *parts;
  const double x = p[0][0] + s * (p[1][0] - p[0][0]), y = p[0][1] + s * (p[1][1] - p[0][1]);
  if (flat) return in.point(x, y);
  const double z = p[0][2] + s * (p[1][2] - p[0][2]), other = p[2][2] + t * (p[3][2] - p[2][2]);
  if (std::fabs(z - other) > kOnSegment * (1 + std::fabs(z))) return nil;
  return in.point(x, y, z);
}

constexpr Builtin kTable[] = {
    {"distance", distance, 2, 2, "(distance p1 p2)", "Distance de deux points."},
    {"angle", angle, 2, 2, "(angle p1 p2)", "Angle de la direction de deux points, en radians."},
    {"polar", polar, 3, 3, "(polar point angle distance)", "Le point à cette distance dans cette direction."},
    {"inters", intersection, 4, 5, "(inters p1 p2 p3 p4 [segments])",
     "Intersection de deux segments, ou de deux droites si le dernier argument est nil."},
};

}  // namespace

std::span<const Builtin> geometryFamily() { return kTable; }

}  // namespace atelier::lisp
