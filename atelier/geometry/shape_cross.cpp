// Where two pieces meet. Two straight ones, a straight one and an arc, and circles in one plane are solved in closed
// form, all others by Bézier pieces. Pieces that run along each other don't meet there, but pieces that touch end to
// end do.
#include <cmath>
#include <numbers>

#include "atelier/geometry/shape.h"

namespace atelier {

namespace {

// Whether t lies on the piece, within the tolerance; t is then moved onto the piece.
bool onStraight(const Straight& s, double length, double tolerance, double& t) {
  const double hair = tolerance / length;
  if ((t < -hair && !s.endlessBefore) || (t > 1 + hair && !s.endlessAfter)) return false;
  if (!s.endlessBefore) t = std::max(t, 0.0);
  if (!s.endlessAfter) t = std::min(t, 1.0);
  return true;
}

AcGePoint3d at(const Straight& s, double t) { return t == 1 ? s.to : s.from + (s.to - s.from) * t; }

void touch(const Straight& a, const Straight& b, double tolerance, std::vector<OwnCrossing>& out) {
  for (const double t : {0.0, 1.0})
    for (const double s : {0.0, 1.0}) {
      if ((t == 0 ? a.endlessBefore : a.endlessAfter) || (s == 0 ? b.endlessBefore : b.endlessAfter)) continue;
      if (at(a, t).distanceTo(at(b, s)) > tolerance) continue;
      // Pieces on the same side of the common point run along each other.
      const AcGeVector3d da = at(a, 1 - t) - at(a, t), db = at(b, 1 - s) - at(b, s);
      if (da.dotProduct(db) <= 0) out.push_back({t, s});
    }
}

std::vector<OwnCrossing> cross(const Straight& a, const Straight& b, double tolerance) {
  std::vector<OwnCrossing> out;
  const AcGeVector3d p = a.to - a.from, q = b.to - b.from, gap = b.from - a.from;
  const double pp = p.dotProduct(p), qq = q.dotProduct(q);
  if (!(pp > 0) || !(qq > 0)) return out;
  const AcGeVector3d across = p.crossProduct(q);
  const double square = across.dotProduct(across);
  if (square <= 1e-24 * pp * qq) {
    touch(a, b, tolerance, out);
    return out;
  }
  double t = gap.crossProduct(q).dotProduct(across) / square, s = gap.crossProduct(p).dotProduct(across) / square;
  if (!onStraight(a, std::sqrt(pp), tolerance, t) || !onStraight(b, std::sqrt(qq), tolerance, s)) return out;
  // Far along an endless line the point loses digits with its distance from the base.
  const double reach = tolerance + 4e-16 * (std::abs(t) * std::sqrt(pp) + std::abs(s) * std::sqrt(qq));
  if (at(a, t).distanceTo(at(b, s)) <= reach) out.push_back({t, s});
  return out;
}

// Coordinates in the frame of the two half diameters.
struct Frame {
  explicit Frame(const Elliptic& e) : e_(e), uu(e.u.dotProduct(e.u)), uv(e.u.dotProduct(e.v)), vv(e.v.dotProduct(e.v)) {
    det = uu * vv - uv * uv;
  }
  bool usable() const { return det > 1e-20 * uu * vv; }
  double a(const AcGeVector3d& d) const { return (d.dotProduct(e_.u) * vv - d.dotProduct(e_.v) * uv) / det; }
  double b(const AcGeVector3d& d) const { return (d.dotProduct(e_.v) * uu - d.dotProduct(e_.u) * uv) / det; }
  double radius() const { return std::sqrt(std::max(uu, vv)); }

 private:
  const Elliptic& e_;
  double uu, uv, vv, det;
};

// Roots of the line in the ellipse's plane, in t; a tangent has one.
std::vector<double> planeRoots(const Frame& f, const AcGeVector3d& from, const AcGeVector3d& d, double tolerance) {
  const double a0 = f.a(from), b0 = f.b(from), a1 = f.a(d), b1 = f.b(d);
  const double A = a1 * a1 + b1 * b1, middle = -(a0 * a1 + b0 * b1) / A;
  const double least = std::hypot(a0 + a1 * middle, b0 + b1 * middle);
  if (least > 1 + tolerance / f.radius()) return {};
  const double half = std::sqrt(std::max(0.0, (1 - least * least) / A));
  if (std::abs(least - 1) <= 1e-14) return {middle};
  return half > 0 ? std::vector<double>{middle - half, middle + half} : std::vector<double>{middle};
}

std::vector<OwnCrossing> cross(const Straight& line, const Elliptic& arc, const Frame& f, double tolerance) {
  std::vector<OwnCrossing> out;
  const AcGeVector3d d = line.to - line.from, normal = arc.u.crossProduct(arc.v).normal();
  const double length = d.length();
  if (!(length > 0)) return out;
  const AcGeVector3d from = line.from - arc.centre;
  const double slope = normal.dotProduct(d) / length;
  const double nearestT = -from.dotProduct(d) / (length * length);
  const double height = normal.dotProduct(from + d * nearestT);
  std::vector<double> roots;
  if (std::abs(height) + 2 * f.radius() * std::abs(slope) <= tolerance) roots = planeRoots(f, from, d, tolerance);
  else if (slope != 0) roots = {-normal.dotProduct(from) / normal.dotProduct(d)};
  for (double t : roots) {
    const AcGeVector3d p = from + d * t;
    const double hair = tolerance / f.radius(), angle = angleFrom(arc.from, std::atan2(f.b(p), f.a(p)), hair);
    if (angle > arc.to + hair || !onStraight(line, length, tolerance, t)) continue;
    const double held = std::clamp(angle, arc.from, arc.to);
    if (shapePoint(arc, held).distanceTo(at(line, t)) <= 4 * tolerance) out.push_back({t, held});
  }
  return out;
}

// The arc's own parameter towards a place, or nothing when that lies beyond its ends.
std::optional<double> towards(const Elliptic& arc, const AcGeVector3d& fromCentre, double radius, double tolerance) {
  const double hair = tolerance / radius;
  const double angle =
      angleFrom(arc.from, std::atan2(fromCentre.dotProduct(arc.v), fromCentre.dotProduct(arc.u)), hair);
  if (angle > arc.to + hair) return std::nullopt;
  return std::clamp(angle, arc.from, arc.to);
}

// Arcs of one circle: they touch where one goes on from the other's end.
std::vector<OwnCrossing> touch(const Elliptic& a, const Elliptic& b, double tolerance) {
  std::vector<OwnCrossing> out;
  const double turn = 2 * std::numbers::pi - 1e-9;
  if (a.to - a.from >= turn || b.to - b.from >= turn) return out;
  for (const double t : {a.from, a.to})
    for (const double s : {b.from, b.to}) {
      if (shapePoint(a, t).distanceTo(shapePoint(b, s)) > tolerance) continue;
      const AcGeVector3d da = shapeDerivative(a, t) * (t == a.from ? 1 : -1),
                         db = shapeDerivative(b, s) * (s == b.from ? 1 : -1);
      if (da.dotProduct(db) < 0) out.push_back({t, s});
    }
  return out;
}

bool isCircular(const Elliptic& e) {
  const double uu = e.u.dotProduct(e.u), vv = e.v.dotProduct(e.v);
  return uu > 0 && std::abs(uu - vv) <= 1e-14 * uu && std::abs(e.u.dotProduct(e.v)) <= 1e-14 * uu;
}

// Arcs of circles in parallel planes; nothing for others. Circles that touch, within the tolerance, have one meeting:
// halving would find many along the stretch where they are that near.
std::optional<std::vector<OwnCrossing>> crossCircles(const Elliptic& a, const Elliptic& b, double tolerance) {
  if (!isCircular(a) || !isCircular(b)) return std::nullopt;
  const double ra = a.u.length(), rb = b.u.length();
  const AcGeVector3d normal = a.u.crossProduct(a.v).normal();
  if (normal.crossProduct(b.u.crossProduct(b.v).normal()).length() * (ra + rb) > tolerance / 4) return std::nullopt;
  std::vector<OwnCrossing> out;
  AcGeVector3d gap = b.centre - a.centre;
  const double height = normal.dotProduct(gap);
  if (std::abs(height) > tolerance) return out;
  gap = gap - normal * height;
  const double distance = gap.length();
  if (distance > ra + rb + tolerance || distance < std::abs(ra - rb) - tolerance) return out;
  if (distance <= tolerance) return touch(a, b, tolerance);
  const AcGeVector3d along = gap * (1 / distance), across = normal.crossProduct(along);
  const double x = ((distance - rb) * (distance + rb) + ra * ra) / (2 * distance);
  const bool touching =
      std::abs(ra + rb - distance) <= tolerance || std::abs(std::abs(ra - rb) - distance) <= tolerance;
  const double half = touching ? 0 : std::sqrt(std::max(0.0, (ra - x) * (ra + x)));
  for (const double side : {1.0, -1.0}) {
    const AcGeVector3d p = along * (touching ? std::copysign(ra, x) : x) + across * (side * half);
    const auto t = towards(a, p, ra, tolerance), s = towards(b, p - gap, rb, tolerance);
    if (t && s) out.push_back({*t, *s});
    if (touching) break;
  }
  return out;
}

// A bounded part of an endless line that holds all its meetings with a box.
Straight bounded(const Straight& s, const Box& box) {
  if (!s.endlessBefore && !s.endlessAfter) return s;
  const AcGeVector3d d = s.to - s.from;
  const AcGePoint3d centre((box.low[0] + box.high[0]) / 2, (box.low[1] + box.high[1]) / 2,
                           (box.low[2] + box.high[2]) / 2);
  const double radius = centre.distanceTo({box.high[0], box.high[1], box.high[2]});
  const double middle = (centre - s.from).dotProduct(d) / d.dotProduct(d), half = 1.01 * radius / d.length() + 1e-6;
  const double from = s.endlessBefore ? middle - half : std::max(0.0, middle - half);
  const double to = s.endlessAfter ? middle + half : std::min(1.0, middle + half);
  return from < to ? Straight{s.from + d * from, s.from + d * to} : Straight{s.from, s.from};
}

std::vector<OwnCrossing> crossByBeziers(const Shape& a, const Shape& b, double tolerance) {
  std::vector<OwnCrossing> out;
  const std::vector<Bezier> right = shapeBeziers(b);
  for (const Bezier& p : shapeBeziers(a))
    for (const Bezier& q : right)
      for (const Meeting& m : meetings(p, q, tolerance)) out.push_back({ownParam(a, p, m.u), ownParam(b, q, m.v)});
  return out;
}

std::vector<OwnCrossing> crossLine(const Straight& line, const Shape& other, double tolerance) {
  if (const auto* s = std::get_if<Straight>(&other)) return cross(line, *s, tolerance);
  if (const auto* e = std::get_if<Elliptic>(&other))
    if (const Frame frame(*e); frame.usable()) return cross(line, *e, frame, tolerance);
  if (!(line.from.distanceTo(line.to) > 0)) return {};
  const Straight part = bounded(line, shapeBox(other));
  auto out = crossByBeziers(part, other, tolerance);
  const AcGeVector3d d = line.to - line.from;
  for (OwnCrossing& c : out) c.first = (at(part, c.first) - line.from).dotProduct(d) / d.dotProduct(d);
  return out;
}

}  // namespace

std::vector<OwnCrossing> shapeCrossings(const Shape& a, const Shape& b, double tolerance) {
  if (const auto* line = std::get_if<Straight>(&a)) return crossLine(*line, b, tolerance);
  if (const auto* line = std::get_if<Straight>(&b)) {
    auto out = crossLine(*line, a, tolerance);
    for (OwnCrossing& c : out) std::swap(c.first, c.second);
    return out;
  }
  if (const auto* first = std::get_if<Elliptic>(&a), *second = std::get_if<Elliptic>(&b); first && second)
    if (auto out = crossCircles(*first, *second, tolerance)) return *out;
  return crossByBeziers(a, b, tolerance);
}

}  // namespace atelier
