// Centres lie on two curves that run beside the touched ones, as far away as the radius; where these meet is looked at.
#include "atelier/commands/drawing/tangent_circle.h"

#include <cmath>
#include <vector>

#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

// The curves that run beside, inside and outside or on both sides.
std::vector<Touched> beside(const Touched& t, double radius) {
  if (t.radius > 0) {
    std::vector<Touched> circles{{t.a, t.b, t.radius + radius}};
    if (t.radius != radius) circles.push_back({t.a, t.b, std::abs(t.radius - radius)});
    return circles;
  }
  const AcGeVector2d along = t.b - t.a;
  if (!(along.length() > 0)) return {};
  const AcGeVector2d away = AcGeVector2d(-along.y, along.x) * (radius / along.length());
  return {{t.a + away, t.b + away}, {t.a - away, t.b - away}};
}

void meetLines(const Touched& p, const Touched& q, std::vector<AcGePoint2d>& out) {
  const AcGeVector2d u = p.b - p.a, v = q.b - q.a, w = q.a - p.a;
  const double cross = u.x * v.y - u.y * v.x;
  if (std::abs(cross) <= 1e-12 * u.length() * v.length()) return;
  out.push_back(p.a + u * ((w.x * v.y - w.y * v.x) / cross));
}

// The places on a line at the distance of a circle's radius from its centre.
void meetLineAndCircle(const AcGePoint2d& a, const AcGeVector2d& along, const Touched& circle,
                       std::vector<AcGePoint2d>& out) {
  const AcGeVector2d u = along * (1 / along.length());
  const double foot = (circle.a - a).dotProduct(u);
  const double half = circle.radius * circle.radius - std::pow((circle.a - (a + u * foot)).length(), 2);
  if (half < -1e-9 * circle.radius * circle.radius) return;
  const double way = std::sqrt(std::max(0.0, half));
  for (const double t : {foot - way, foot + way}) out.push_back(a + u * t);
}

void meet(const Touched& p, const Touched& q, std::vector<AcGePoint2d>& out) {
  if (p.radius > 0 && q.radius > 0) {
    // Where two circles meet stands on the line of equal power.
    const AcGeVector2d d = q.a - p.a;
    const double between = d.length();
    if (!(between > 0)) return;
    const double part = (between * between + p.radius * p.radius - q.radius * q.radius) / (2 * between);
    meetLineAndCircle(p.a + d * (part / between), AcGeVector2d(-d.y, d.x), p, out);
  } else if (p.radius > 0) {
    meetLineAndCircle(q.a, q.b - q.a, p, out);
  } else if (q.radius > 0) {
    meetLineAndCircle(p.a, p.b - p.a, q, out);
  } else {
    meetLines(p, q, out);
  }
}

// Where a circle around this centre touches.
AcGePoint2d contact(const Touched& t, const AcGePoint2d& centre) {
  const AcGeVector2d along = t.radius > 0 ? centre - t.a : t.b - t.a;
  if (t.radius > 0) return along.length() > 0 ? t.a + along * (t.radius / along.length()) : t.a;
  return t.a + along * ((centre - t.a).dotProduct(along) / along.dotProduct(along));
}

Touched segmentOf(const AcGePoint2d& a, const AcGePoint2d& b, double bulge) {
  const BulgeArc arc = bulgeArc(a, b, bulge);
  return bulge == 0 || !(arc.radius > 0) ? Touched{a, b} : Touched{arc.centre, b, arc.radius};
}

AcGePoint2d flat(const AcGePoint3d& p) { return {p.x, p.y}; }

}  // namespace

std::optional<Touched> touchedAt(const AcDbCurve& curve, const AcGePoint3d& place) {
  if (const auto* line = AcDbLine::cast(&curve)) return Touched{flat(line->startPoint()), flat(line->endPoint())};
  if (const auto* circle = AcDbCircle::cast(&curve)) return Touched{flat(circle->center()), {}, circle->radius()};
  if (const auto* arc = AcDbArc::cast(&curve)) return Touched{flat(arc->center()), {}, arc->radius()};
  const auto* polyline = AcDbPolyline::cast(&curve);
  const auto param = polyline ? paramNear(curve, place) : std::nullopt;
  if (!param || polyline->numVerts() < 2) return std::nullopt;
  const unsigned count = polyline->numVerts(), last = polyline->isClosed() ? count - 1 : count - 2;
  const unsigned i = std::min(static_cast<unsigned>(*param), last);
  AcGePoint2d a, b;
  double bulge = 0;
  polyline->getPointAt(i, a);
  polyline->getPointAt((i + 1) % count, b);
  polyline->getBulgeAt(i, bulge);
  return segmentOf(a, b, bulge);
}

std::optional<AcGePoint2d> tangentCentre(const Touched& first, const AcGePoint2d& nearFirst, const Touched& second,
                                         const AcGePoint2d& nearSecond, double radius) {
  std::vector<AcGePoint2d> centres;
  for (const Touched& p : beside(first, radius))
    for (const Touched& q : beside(second, radius)) meet(p, q, centres);
  std::optional<AcGePoint2d> best;
  double least = HUGE_VAL;
  for (const AcGePoint2d& c : centres) {
    const double way = contact(first, c).distanceTo(nearFirst) + contact(second, c).distanceTo(nearSecond);
    if (way < least) least = way, best = c;
  }
  return best;
}

}  // namespace atelier
