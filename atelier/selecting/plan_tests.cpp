// Strokes against points, polygons and lines, in plan.
// An end that lies on an edge counts as inside and as touching.
#include <algorithm>
#include <limits>

#include "atelier/selecting/flat_path.h"

namespace atelier {
namespace {

constexpr double kOnEdge = 1e-9;  // how far from an edge, in drawing units, a point still lies on it

double cross(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double segmentDistance(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
  const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
  const double t = square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
  return std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y);
}

// Whether the segments cross at a point inside both.
bool properlyCross(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, const AcGePoint3d& d) {
  const double c1 = cross(a, b, c), c2 = cross(a, b, d), c3 = cross(c, d, a), c4 = cross(c, d, b);
  return ((c1 > 0 && c2 < 0) || (c1 < 0 && c2 > 0)) && ((c3 > 0 && c4 < 0) || (c3 < 0 && c4 > 0));
}

bool segmentsMeet(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, const AcGePoint3d& d) {
  return properlyCross(a, b, c, d) || segmentDistance(a, c, d) <= kOnEdge || segmentDistance(b, c, d) <= kOnEdge ||
         segmentDistance(c, a, b) <= kOnEdge || segmentDistance(d, a, b) <= kOnEdge;
}

// Calls back with the ends of each segment until it answers true; a lone point is a segment without length.
template <class VISIT>
bool anySegment(std::span<const AcGePoint3d> points, bool closed, VISIT visit) {
  if (points.size() == 1) return visit(points[0], points[0]);
  for (std::size_t i = 0; i + 1 < points.size(); ++i)
    if (visit(points[i], points[i + 1])) return true;
  return closed && points.size() > 2 && visit(points.back(), points.front());
}

bool contains(std::span<const AcGePoint3d> polygon, const AcGePoint3d& p) {
  bool inside = false;
  const bool onEdge = anySegment(polygon, true, [&](const AcGePoint3d& a, const AcGePoint3d& b) {
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
    return segmentDistance(p, a, b) <= kOnEdge;
  });
  return onEdge || inside;
}

bool strokesMeet(const Stroke& stroke, std::span<const AcGePoint3d> line, bool closed) {
  return anySegment(stroke.points, false, [&](const AcGePoint3d& a, const AcGePoint3d& b) {
    return anySegment(line, closed,
                      [&](const AcGePoint3d& c, const AcGePoint3d& d) { return segmentsMeet(a, b, c, d); });
  });
}

}  // namespace

double distanceTo(std::span<const Stroke> strokes, const AcGePoint3d& point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const Stroke& stroke : strokes) {
    if (stroke.filled && contains(stroke.points, point)) return 0;
    anySegment(stroke.points, false, [&](const AcGePoint3d& a, const AcGePoint3d& b) {
      nearest = std::min(nearest, segmentDistance(point, a, b));
      return false;
    });
  }
  return nearest;
}

bool insidePolygon(const AcGePoint3d& point, std::span<const AcGePoint3d> polygon) { return contains(polygon, point); }

bool insidePolygon(std::span<const Stroke> strokes, std::span<const AcGePoint3d> polygon) {
  const auto inside = [&](const Stroke& stroke) {
    if (!std::all_of(stroke.points.begin(), stroke.points.end(),
                     [&](const AcGePoint3d& p) { return contains(polygon, p); }))
      return false;
    return !anySegment(stroke.points, false, [&](const AcGePoint3d& a, const AcGePoint3d& b) {
      return anySegment(polygon, true,
                        [&](const AcGePoint3d& c, const AcGePoint3d& d) { return properlyCross(a, b, c, d); });
    });
  };
  return !strokes.empty() && std::all_of(strokes.begin(), strokes.end(), inside);
}

bool touchesPolygon(std::span<const Stroke> strokes, std::span<const AcGePoint3d> polygon) {
  return std::any_of(strokes.begin(), strokes.end(), [&](const Stroke& stroke) {
    return contains(polygon, stroke.points.front()) || strokesMeet(stroke, polygon, true) ||
           (stroke.filled && contains(stroke.points, polygon.front()));
  });
}

bool crossesLine(std::span<const Stroke> strokes, std::span<const AcGePoint3d> line) {
  return std::any_of(strokes.begin(), strokes.end(), [&](const Stroke& stroke) {
    return strokesMeet(stroke, line, false) || (stroke.filled && contains(stroke.points, line.front()));
  });
}

}  // namespace atelier
