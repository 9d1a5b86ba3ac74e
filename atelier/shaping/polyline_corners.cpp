// Corners of a polyline, one after the other along it.
// The part of a segment that one corner uses is not available for the next one.
#include "atelier/shaping/polyline_corners.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace atelier {
namespace {

using Vertices = std::vector<PolylineVertex>;

constexpr double kStraightOn = 1e-9;  // sine of the turn at a vertex that is no corner

double cross(const AcGeVector2d& u, const AcGeVector2d& v) { return u.x * v.y - u.y * v.x; }

// The meeting of the segments before and after the arc, when both run towards it.
std::optional<AcGePoint2d> meetingOver(const Vertices& list, std::size_t arc) {
  const std::size_t n = list.size();
  const PolylineVertex &a = list[(arc + n - 1) % n], &b = list[arc], &c = list[(arc + 1) % n], &d = list[(arc + 2) % n];
  if (b.bulge == 0 || a.bulge != 0 || c.bulge != 0) return std::nullopt;
  const AcGeVector2d u = (b.point - a.point).normal(), v = (c.point - d.point).normal(), gap = c.point - b.point;
  const double sine = cross(u, v);
  if (std::abs(sine) < kStraightOn) return std::nullopt;
  const double ahead = cross(gap, v) / sine, after = cross(gap, u) / sine;
  return ahead > 0 && after > 0 ? std::optional(b.point + u * ahead) : std::nullopt;
}

int straightenArcs(Vertices& list, bool closed) {
  int gone = 0;
  for (std::size_t i = closed ? 0 : 1; i + (closed ? 0 : 2) < list.size() && list.size() > 3; ++i) {
    const auto meeting = meetingOver(list, i);
    if (!meeting) continue;
    const std::size_t next = (i + 1) % list.size();
    PolylineVertex corner = list[next];
    corner.point = *meeting;
    list[next] = corner;
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
    ++gone;
  }
  return gone;
}

// How far from a corner its arc or cut begins and ends.
struct Reach {
  double before = 0, after = 0;
  double bulge = 0;
};

// REACH gives the reach of a corner from the unit directions towards the vertices before and after it.
template <class REACH>
CorneredPath cornered(const Vertices& list, bool closed, REACH reach) {
  const std::size_t n = list.size();
  CorneredPath path;
  std::vector<double> left(n);  // of each segment
  for (std::size_t i = 0; i < n; ++i) left[i] = list[i].point.distanceTo(list[(i + 1) % n].point);
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t before = (i + n - 1) % n;
    path.list.push_back(list[i]);
    if (!closed && (i == 0 || i + 1 == n)) continue;
    const AcGeVector2d u = (list[before].point - list[i].point).normal(),
                       v = (list[(i + 1) % n].point - list[i].point).normal();
    if (list[before].bulge != 0 || list[i].bulge != 0 || std::abs(cross(u, v)) < kStraightOn) continue;
    const Reach r = reach(u, v);
    constexpr double kHair = 1e-9;
    if (r.before > left[before] + kHair || r.after > left[i] + kHair) {
      ++path.tooShort;
      continue;
    }
    left[before] -= r.before;
    left[i] -= r.after;
    ++path.made;
    PolylineVertex& first = path.list.back();
    first = {list[i].point + u * r.before, r.bulge, list[before].endWidth, list[i].startWidth, list[i].identifier};
    PolylineVertex second = list[i];
    second.point = list[i].point + v * r.after;
    second.identifier = 0;
    path.list.push_back(second);
  }
  // Two corners may use up the whole segment between them.
  const auto coincide = [](const PolylineVertex& a, const PolylineVertex& b) {
    return a.bulge == 0 && a.point.distanceTo(b.point) <= 1e-9;
  };
  if (path.made > 0) {
    for (std::size_t i = 0; i + 1 < path.list.size();)
      if (coincide(path.list[i], path.list[i + 1])) path.list.erase(path.list.begin() + static_cast<std::ptrdiff_t>(i));
      else ++i;
    if (closed && path.list.size() > 2 && coincide(path.list.back(), path.list.front())) path.list.pop_back();
  }
  return path;
}

}  // namespace

CorneredPath roundedPath(Vertices list, bool closed, double radius) {
  const int gone = straightenArcs(list, closed);
  if (!(radius > 0)) return {std::move(list), gone, 0};
  return cornered(list, closed, [&](const AcGeVector2d& u, const AcGeVector2d& v) {
    const double between = std::acos(std::clamp(u.dotProduct(v), -1.0, 1.0));
    const double reach = radius / std::tan(between / 2), bulge = std::tan((std::numbers::pi - between) / 4);
    return Reach{reach, reach, cross(u, v) > 0 ? -bulge : bulge};
  });
}

CorneredPath cutPath(const Vertices& list, bool closed, double before, double after) {
  if (!(before > 0 || after > 0)) return {list, 0, 0};
  return cornered(list, closed, [&](const AcGeVector2d&, const AcGeVector2d&) { return Reach{before, after, 0}; });
}

}  // namespace atelier
