// Arcs to Béziers.
// A Bézier over an angle a with handles 4/3·tan(a/4) is off by about (a/6.36)^6 radii (Goldapp, CAGD 8,
// 1991).
#include "atelier/render/shapes/tessellate.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace atelier::render {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
// Over a quarter turn the error is 2.73e-4 radii, and it goes with the sixth power of the angle.
const double kGreatestAngle = std::numbers::pi / 2 * std::pow(kArcTolerance / 2.73e-4, 1.0 / 6.0);

}  // namespace

void addArc(Path& path, Pt centre, Pt u, Pt v, double start, double sweep, bool move) {
  if (!std::isfinite(start) || !std::isfinite(sweep)) return;
  sweep = std::clamp(sweep, -kTurn, kTurn);
  const auto at = [&](double c, double s) { return centre + (c * u + s * v); };
  const Pt first = at(std::cos(start), std::sin(start));
  if (move || path.empty()) path.moveTo(first);
  else if (path.current().x != first.x || path.current().y != first.y) path.lineTo(first);
  const int parts = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / kGreatestAngle)));
  const double step = sweep / parts, handle = 4.0 / 3.0 * std::tan(step / 4);
  for (int i = 0; i < parts; ++i) {
    const double a = start + step * i, b = start + step * (i + 1);
    const double ca = std::cos(a), sa = std::sin(a), cb = std::cos(b), sb = std::sin(b);
    path.cubicTo(at(ca - handle * sa, sa + handle * ca), at(cb + handle * sb, sb - handle * cb), at(cb, sb));
  }
}

void addEllipse(Path& path, Pt centre, Pt u, Pt v) {
  addArc(path, centre, u, v, 0, kTurn, true);
  path.close();
}

void addBulge(Path& path, Pt from, Pt to, double bulge) {
  const Pt chord = to - from;
  const double length = std::hypot(chord.x, chord.y);
  if (!(std::abs(bulge) > 1e-12) || !std::isfinite(bulge) || length == 0) return path.lineTo(to);
  // The centre is on the chord's normal, (1 - b²)/(4b) chords to the left of its middle.
  const double k = (1 - bulge * bulge) / (4 * bulge);
  const Pt centre = from + (0.5 * chord + k * Pt{-chord.y, chord.x});
  const Pt arm = from - centre;
  addArc(path, centre, arm, {-arm.y, arm.x}, 0, 4 * std::atan(bulge));
  // The end is the vertex itself, not its image through sines.
  path.lineTo(to);
}

Path polylinePath(std::span<const PolyVertex> vertices, bool closed) {
  Path path;
  if (vertices.empty()) return path;
  path.moveTo(vertices[0].at);
  for (std::size_t i = 0; i + 1 < vertices.size(); ++i)
    addBulge(path, vertices[i].at, vertices[i + 1].at, vertices[i].bulge);
  if (closed && vertices.size() > 1) {
    addBulge(path, vertices.back().at, vertices[0].at, vertices.back().bulge);
    path.close();
  }
  return path;
}

}  // namespace atelier::render
