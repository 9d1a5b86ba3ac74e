// Choosing among the circles that touch two tracks.
// A circle touches both when its centre lies on a parallel of each: there are up to eight such circles.
#include "atelier/shaping/corner.h"

#include <cmath>
#include <numbers>
#include <tuple>

namespace atelier {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kTouch = 1e-9;

double cross(const AcGeVector2d& u, const AcGeVector2d& v) { return u.x * v.y - u.y * v.x; }

// The place of a point on the side's track; on a circle the angle within the piece, or nearest to it.
double placeOn(const CornerSide& side, const AcGePoint2d& point) {
  const double param = side.track.paramOf(point);
  if (!side.track.isRound() || side.whole) return param;
  const double before = (kTurn - (side.high - side.low)) / 2, first = side.low - before;
  return param + kTurn * std::ceil((first - param) / kTurn);
}

bool leavesSomething(const CornerSide& side, const Joint& joint) {
  return side.whole || (joint.keepsHigh ? side.high - joint.param : joint.param - side.low) > kTouch;
}

// How well a corner fits the picks: first the number of picked parts that it removes, then the distance of its ends
// from the picks. Less is better.
struct Fit {
  int lost = 0;
  double distance = 0;
  bool operator<(const Fit& other) const {
    return lost != other.lost ? lost < other.lost : distance < other.distance - kTouch;
  }
};

class Choice {
 public:
  Choice(const CornerSide& a, const CornerSide& b) : a_(a), b_(b) {}
  void offer(const Corner& corner, int lost) {
    if (!leavesSomething(a_, corner.first) || !leavesSomething(b_, corner.second)) return;
    const Fit fit{lost, corner.first.point.distanceTo(a_.pick) + corner.second.point.distanceTo(b_.pick)};
    if (best_ && !(fit < fit_)) return;
    best_ = corner;
    fit_ = fit;
  }
  const std::optional<Corner>& best() const { return best_; }

 private:
  const CornerSide &a_, &b_;
  std::optional<Corner> best_;
  Fit fit_;
};

// The part with the pick is kept; for a pick on the meeting itself the longer part.
Joint jointAt(const CornerSide& side, const AcGePoint2d& meeting) {
  const double param = placeOn(side, meeting), pick = placeOn(side, side.pick);
  if (std::abs(pick - param) > kTouch) return {meeting, param, pick > param};
  return {meeting, param, side.high - param > param - side.low};
}

std::optional<Corner> sharpCorner(const CornerSide& a, const CornerSide& b) {
  Choice choice(a, b);
  for (const AcGePoint2d& p : meetings(a.track, b.track)) choice.offer({jointAt(a, p), jointAt(b, p), 0}, 0);
  return choice.best();
}

// Where a circle round that centre touches the track; a circle that it surrounds is touched on the far side.
AcGePoint2d touchingPoint(const Track& track, const AcGePoint2d& centre, double radius) {
  const double param = track.paramOf(centre);
  const AcGePoint2d near = track.pointAt(param);
  if (!track.isRound()) return near;
  const AcGePoint2d far = track.pointAt(param + std::numbers::pi);
  return std::abs(near.distanceTo(centre) - radius) <= std::abs(far.distanceTo(centre) - radius) ? near : far;
}

// Whether the picked part is removed. It is judged from the meeting of the tracks nearest to the joint, because with a
// great radius the pick may lie between the two.
bool losesPick(const CornerSide& side, const Joint& joint, const std::vector<AcGePoint2d>& corners) {
  if (side.whole) return false;
  AcGePoint2d from = joint.point;
  double least = HUGE_VAL;
  for (const AcGePoint2d& corner : corners)
    if (const double away = corner.distanceTo(joint.point); away < least) least = away, from = corner;
  const double ahead = placeOn(side, side.pick) - placeOn(side, from);
  return joint.keepsHigh ? ahead < -kTouch : ahead > kTouch;
}

// The arc round the centre from one touching point to the other goes smoothly on into the parts that stay.
Corner smoothCorner(const CornerSide& a, const CornerSide& b, const AcGePoint2d& centre, const AcGePoint2d& ta,
                    const AcGePoint2d& tb, double sweep) {
  const double side = sweep > 0 ? 1 : -1, pa = placeOn(a, ta), pb = placeOn(b, tb);
  const AcGeVector2d leaving = (ta - centre).perpVector() * side, arriving = (tb - centre).perpVector() * side;
  return {{ta, pa, a.track.along(pa).dotProduct(leaving) < 0},
          {tb, pb, b.track.along(pb).dotProduct(arriving) > 0},
          std::tan(sweep / 4)};
}

std::optional<Corner> halfCircle(const CornerSide& a, const CornerSide& b) {
  const double pick = a.track.paramOf(a.pick);
  const bool atHigh = std::abs(a.high - pick) < std::abs(pick - a.low);
  const double end = atHigh ? a.high : a.low;
  if (!std::isfinite(end)) return std::nullopt;
  const AcGePoint2d from = a.track.pointAt(end), to = b.track.pointAt(b.track.paramOf(from));
  if (from.distanceTo(to) <= kTouch) return std::nullopt;
  const AcGeVector2d outward = a.track.direction * (atHigh ? 1 : -1);
  const Corner corner{{from, end, !atHigh},
                      {to, b.track.paramOf(to), b.track.direction.dotProduct(outward) < 0},
                      cross(to - from, outward) < 0 ? 1.0 : -1.0};
  return leavesSomething(b, corner.second) ? std::optional(corner) : std::nullopt;
}

}  // namespace

bool areParallel(const CornerSide& a, const CornerSide& b) {
  return !a.track.isRound() && !b.track.isRound() && meetings(a.track, b.track).empty();
}

std::optional<Corner> roundedCorner(const CornerSide& a, const CornerSide& b, double radius) {
  if (areParallel(a, b)) return halfCircle(a, b);
  if (radius <= 0) return sharpCorner(a, b);
  const std::vector<AcGePoint2d> corners = meetings(a.track, b.track);
  Choice choice(a, b);
  for (const Track& p : parallels(a.track, radius))
    for (const Track& q : parallels(b.track, radius))
      for (const AcGePoint2d& centre : meetings(p, q)) {
        const AcGePoint2d ta = touchingPoint(a.track, centre, radius), tb = touchingPoint(b.track, centre, radius);
        if (ta.distanceTo(tb) <= kTouch) continue;
        const AcGeVector2d u = ta - centre, v = tb - centre;
        const double sweep = std::atan2(cross(u, v), u.dotProduct(v));
        for (const double way : {sweep, -sweep}) {
          if (way != sweep && std::abs(sweep) < std::numbers::pi - kTouch) continue;  // both of two halves
          const Corner corner = smoothCorner(a, b, centre, ta, tb, way);
          choice.offer(corner, losesPick(a, corner.first, corners) + losesPick(b, corner.second, corners));
        }
      }
  return choice.best();
}

std::optional<Corner> cutCorner(const CornerSide& a, const CornerSide& b, double first, double second) {
  auto corner = sharpCorner(a, b);
  if (!corner) return corner;
  for (auto [side, joint, back] : {std::tuple(&a, &corner->first, first), std::tuple(&b, &corner->second, second)}) {
    joint->param += joint->keepsHigh ? back : -back;
    joint->point = side->track.pointAt(joint->param);
    if (!leavesSomething(*side, *joint)) return std::nullopt;
  }
  return corner;
}

}  // namespace atelier
