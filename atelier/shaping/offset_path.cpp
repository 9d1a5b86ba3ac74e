// Moving a polyline sideways, piece by piece.
// Pieces keep their own line or circle; only their ends are worked out anew.
#include "atelier/shaping/offset_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/geometry/track.h"

namespace atelier {
namespace {

constexpr double kTouch = 1e-9;

struct Part {
  AcGePoint2d from, to, corner;  // corner: where the piece began before
  AcGeVector2d direction;        // of a straight piece
  AcGePoint2d centre;
  double radius = 0;  // 0: straight
  bool leftTurning = false;
  double startWidth = 0, endWidth = 0;

  double bulge() const {
    if (radius == 0) return 0;
    double sweep = (to - centre).angle() - (from - centre).angle();
    if (!leftTurning) sweep = -sweep;
    sweep -= std::floor(sweep / (2 * std::numbers::pi)) * 2 * std::numbers::pi;
    return std::tan(sweep / 4) * (leftTurning ? 1 : -1);
  }
  Track track() const { return radius > 0 ? Track::circle(centre, radius) : Track{from, direction, 0}; }
  bool runsBackwards() const { return radius == 0 && (to - from).dotProduct(direction) <= 0; }
};

Part moved(const PolylineVertex& a, const PolylineVertex& b, double distance) {
  Part part{a.point, b.point, a.point, (b.point - a.point).normal(), {}, 0, a.bulge > 0, a.startWidth, a.endWidth};
  const BulgeArc arc = bulgeArc(a.point, b.point, a.bulge);
  if (arc.radius == 0) {
    const AcGeVector2d shift = part.direction.perpVector() * distance;
    part.from = a.point + shift;
    part.to = b.point + shift;
    return part;
  }
  part.centre = arc.centre;
  part.radius = arc.radius + (part.leftTurning ? -distance : distance);
  part.from = arc.centre + (a.point - arc.centre) * (part.radius / arc.radius);
  part.to = arc.centre + (b.point - arc.centre) * (part.radius / arc.radius);
  return part;
}

// Neighbours end where their lines meet, at the meeting nearest to their corner before.
void join(Part& before, Part& after) {
  if ((before.to - after.from).length() <= kTouch) return;
  const auto points = meetings(before.track(), after.track());
  if (points.empty()) return;
  before.to = after.from =
      *std::min_element(points.begin(), points.end(), [&](const AcGePoint2d& p, const AcGePoint2d& q) {
        return (p - after.corner).length() < (q - after.corner).length();
      });
}

void joinAll(std::vector<Part>& parts, bool closed) {
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) join(parts[i], parts[i + 1]);
  if (closed && parts.size() > 1) join(parts.back(), parts.front());
}

}  // namespace

std::vector<PolylineVertex> offsetPath(const std::vector<PolylineVertex>& vertices, bool closed, double distance) {
  std::vector<Part> parts;
  const std::size_t count = vertices.size();
  for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
    const PolylineVertex &a = vertices[i], &b = vertices[(i + 1) % count];
    if ((b.point - a.point).length() <= kTouch) continue;
    const Part part = moved(a, b, distance);
    if (part.radius >= 0 && (part.radius > kTouch || a.bulge == 0)) parts.push_back(part);
  }
  // A short piece that would run backwards is removed, and its neighbours meet.
  for (bool again = true; again && !parts.empty();) {
    std::vector<Part> joined = parts;
    joinAll(joined, closed);
    const auto back = std::find_if(joined.begin(), joined.end(), [](const Part& p) { return p.runsBackwards(); });
    again = back != joined.end();
    if (again) parts.erase(parts.begin() + (back - joined.begin()));
    else parts = std::move(joined);
  }
  std::vector<PolylineVertex> path;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    path.push_back({parts[i].from, parts[i].bulge(), parts[i].startWidth, parts[i].endWidth});
    const bool last = i + 1 == parts.size();
    const AcGePoint2d next = parts[(i + 1) % parts.size()].from;
    if ((last && !closed) || (parts[i].to - next).length() > kTouch) path.push_back({parts[i].to});
  }
  return path.size() < 2 || (closed && parts.size() < 2) ? std::vector<PolylineVertex>() : path;
}

}  // namespace atelier
