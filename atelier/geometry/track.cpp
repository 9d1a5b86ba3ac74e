// Meetings of lines and circles in a plane.
// All is worked out with differences from a place nearby, because survey coordinates run into the millions.
#include "atelier/geometry/track.h"

#include <cmath>

namespace atelier {
namespace {

using Points = std::vector<AcGePoint2d>;
constexpr double kTouch = 1e-9;
constexpr double kParallel = 1e-9;  // sine of the angle between directions

double cross(const AcGeVector2d& u, const AcGeVector2d& v) { return u.x * v.y - u.y * v.x; }

Points ofLines(const Track& a, const Track& b) {
  const double sine = cross(a.direction, b.direction);
  if (std::abs(sine) < kParallel) return {};
  return {a.origin + a.direction * (cross(b.origin - a.origin, b.direction) / sine)};
}

Points ofLineAndCircle(const Track& line, const Track& circle) {
  const AcGePoint2d foot = line.pointAt(line.paramOf(circle.origin));
  const double away = foot.distanceTo(circle.origin);
  if (std::abs(away - circle.radius) <= kTouch) return {foot};
  if (away > circle.radius) return {};
  const double half = std::sqrt((circle.radius - away) * (circle.radius + away));
  return {foot + line.direction * -half, foot + line.direction * half};
}

// Two circles meet on their radical line.
Points ofCircles(const Track& a, const Track& b) {
  const AcGeVector2d between = b.origin - a.origin;
  const double d = between.length();
  if (d <= kTouch) return {};
  const double along = (d + (a.radius - b.radius) * (a.radius + b.radius) / d) / 2;
  return ofLineAndCircle({a.origin + between * (along / d), between.perpVector() * (1 / d), 0}, a);
}

}  // namespace

double Track::paramOf(const AcGePoint2d& point) const {
  const AcGeVector2d v = point - origin;
  return isRound() ? std::atan2(v.y, v.x) : v.dotProduct(direction);
}

AcGePoint2d Track::pointAt(double param) const {
  return isRound() ? origin + AcGeVector2d(std::cos(param), std::sin(param)) * radius : origin + direction * param;
}

AcGeVector2d Track::along(double param) const {
  return isRound() ? AcGeVector2d(-std::sin(param), std::cos(param)) : direction;
}

std::vector<AcGePoint2d> meetings(const Track& a, const Track& b) {
  if (a.isRound()) return b.isRound() ? ofCircles(a, b) : ofLineAndCircle(b, a);
  return b.isRound() ? ofLineAndCircle(a, b) : ofLines(a, b);
}

std::vector<Track> parallels(const Track& track, double distance) {
  if (!track.isRound()) {
    const AcGeVector2d across = track.direction.perpVector() * distance;
    return {{track.origin + across, track.direction, 0}, {track.origin - across, track.direction, 0}};
  }
  std::vector<Track> out{Track::circle(track.origin, track.radius + distance)};
  if (const double inner = std::abs(track.radius - distance); inner > kTouch)
    out.push_back(Track::circle(track.origin, inner));
  return out;
}

}  // namespace atelier
