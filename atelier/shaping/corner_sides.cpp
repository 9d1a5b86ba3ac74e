// Reading the sides of a corner from what was picked.
// Arcs, circles and polylines have a plane of their own; two lines span one.
#include "atelier/shaping/corner_sides.h"

#include <cmath>
#include <numbers>

#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

constexpr double kInPlane = 1e-6;  // units that a point may lie out of the plane
constexpr double kSameNormal = 1e-9;

struct Straightness {
  AcGePoint3d from;
  AcGeVector3d along;  // unit
  double low = 0, high = 0;
};

std::optional<Straightness> straight(const AcDbCurve& curve) {
  if (const auto* ray = AcDbRay::cast(&curve)) return Straightness{ray->basePoint(), ray->unitDir(), 0, HUGE_VAL};
  if (const auto* line = AcDbXline::cast(&curve))
    return Straightness{line->basePoint(), line->unitDir(), -HUGE_VAL, HUGE_VAL};
  const auto* line = AcDbLine::cast(&curve);
  if (!line) return std::nullopt;
  const AcGeVector3d d = line->endPoint() - line->startPoint();
  return Straightness{line->startPoint(), d.normal(), 0, d.length()};
}

std::optional<AcGeVector3d> normalOf(const AcDbCurve& curve) {
  if (const auto* polyline = AcDbPolyline::cast(&curve)) return polyline->normal().normal();
  if (const auto* arc = AcDbArc::cast(&curve)) return arc->normal().normal();
  if (const auto* circle = AcDbCircle::cast(&curve)) return circle->normal().normal();
  return std::nullopt;
}

// The plane that two lines span, seen from above.
AcGeVector3d spanned(const AcDbCurve& a, const AcDbCurve& b) {
  const auto first = straight(a), second = straight(b);
  if (!first || !second) return AcGeVector3d::kZAxis;
  AcGeVector3d across = first->along.crossProduct(second->along);
  if (across.length() < kSameNormal) across = first->along.crossProduct((second->from - first->from).normal());
  if (across.length() < kSameNormal) return AcGeVector3d::kZAxis;
  const AcGeVector3d normal = across.normal();
  if (std::hypot(normal.x, normal.y) < kSameNormal) return AcGeVector3d::kZAxis;
  return normal.z < 0 ? -normal : normal;
}

AcGeVector3d commonNormal(const AcDbCurve& a, const AcDbCurve& b) {
  const bool polylineSecond = !AcDbPolyline::cast(&a) && AcDbPolyline::cast(&b);
  const auto first = normalOf(polylineSecond ? b : a), second = normalOf(polylineSecond ? a : b);
  return first ? *first : second ? *second : spanned(a, b);
}

AcGePoint3d anyPointOf(const AcDbCurve& curve) {
  if (const auto line = straight(curve)) return line->from;
  AcGePoint3d point;
  curve.getStartPoint(point);
  return point;
}

// Points of the world in the plane's axes; those out of the plane are remembered.
class Flattener {
 public:
  explicit Flattener(const CornerPlane& plane) : plane_(plane) {}
  AcGePoint2d operator()(const AcGePoint3d& world) {
    const AcGePoint3d p = plane_.own(world);
    fits_ &= std::abs(p.z - plane_.height) <= kInPlane;
    return {p.x, p.y};
  }
  // Whether turns that are positive for that normal are positive in the plane.
  bool sameWay(const AcGeVector3d& normal) {
    fits_ &= plane_.normal.crossProduct(normal.normal()).length() <= kSameNormal;
    return plane_.normal.dotProduct(normal) > 0;
  }
  bool fits() const { return fits_; }

 private:
  const CornerPlane& plane_;
  bool fits_ = true;
};

void setStraight(CornerSide& side, const AcGePoint2d& from, const AcGePoint2d& to) {
  side.track = Track::line(from, to);
  side.high = from.distanceTo(to);
}

void readArc(CornerSide& side, const AcDbArc& arc, Flattener& flat) {
  AcGePoint3d start, end;
  arc.getStartPoint(start);
  arc.getEndPoint(end);
  const bool sameWay = flat.sameWay(arc.normal());
  side.track = Track::circle(flat(arc.center()), arc.radius());
  side.low = side.track.paramOf(flat(sameWay ? start : end));
  side.high = side.low + arc.totalAngle();
}

void readSegment(PickedSide& picked, const AcDbPolyline& polyline, const AcGePoint3d& at, Flattener& flat) {
  const unsigned count = polyline.numVerts(), segments = polyline.isClosed() ? count : count - 1;
  const double param = paramNear(polyline, at).value_or(0);
  picked.polyline = true;
  picked.closed = polyline.isClosed();
  picked.segment = std::min(static_cast<unsigned>(std::max(0.0, std::floor(param))), segments - 1);
  AcGePoint3d from, to;
  polyline.getPointAt(picked.segment, from);
  polyline.getPointAt((picked.segment + 1) % count, to);
  double bulge = 0;
  polyline.getBulgeAt(picked.segment, bulge);
  if (!flat.sameWay(polyline.normal())) bulge = -bulge;
  const AcGePoint2d a = flat(from), b = flat(to);
  const BulgeArc arc = bulgeArc(a, b, bulge);
  if (!(arc.radius > 0)) return setStraight(picked.side, a, b);
  picked.side.track = Track::circle(arc.centre, arc.radius);
  picked.side.low = std::min(arc.startAngle, arc.startAngle + arc.sweep);
  picked.side.high = picked.side.low + std::abs(arc.sweep);
  picked.runsWithTrack = bulge > 0;
}

// The point where it was picked, or the middle of a curve that a program named.
AcGePoint3d pickOn(const AcDbCurve& curve, const PickedEntity& picked) {
  AcGePoint3d point = picked.point;
  double low = 0, high = 0;
  if (picked.byPoint) curve.getPointAtParam(paramNear(curve, picked.point).value_or(0), point);
  else if (curve.getStartParam(low) == Acad::eOk && curve.getEndParam(high) == Acad::eOk)
    curve.getPointAtParam((low + high) / 2, point);
  return point;
}

PickedSide readSide(Document& document, const PickedEntity& entity, const CornerPlane& plane) {
  const AcDbCurve& curve = pickedCurve(document, entity.id);
  Flattener flat(plane);
  PickedSide picked;
  picked.id = entity.id;
  const AcGePoint3d at = pickOn(curve, entity);
  if (const auto line = straight(curve)) {
    setStraight(picked.side, flat(line->from), flat(line->from + line->along));
    picked.side.low = line->low;
    picked.side.high = line->high;
  } else if (const auto* polyline = AcDbPolyline::cast(&curve)) {
    readSegment(picked, *polyline, at, flat);
  } else if (const auto* arc = AcDbArc::cast(&curve)) {
    readArc(picked.side, *arc, flat);
  } else if (const auto* circle = AcDbCircle::cast(&curve)) {
    flat.sameWay(circle->normal());
    picked.side.track = Track::circle(flat(circle->center()), circle->radius());
    picked.side.whole = true;
  }
  picked.side.pick = flat(at);
  if (!flat.fits()) throw Error("Les deux objets ne sont pas dans le même plan.");
  if (!(picked.side.whole || picked.side.high - picked.side.low > 0))
    throw Error("L'objet choisi n'a pas de longueur.");
  return picked;
}

}  // namespace

AcGePoint3d CornerPlane::world(const AcGePoint2d& point) const {
  return AcGeMatrix3d().setToPlaneToWorld(normal) * AcGePoint3d(point.x, point.y, height);
}
AcGePoint3d CornerPlane::own(const AcGePoint3d& world) const {
  return AcGeMatrix3d().setToWorldToPlane(normal) * world;
}

void checkSide(Document& document, const PickedEntity& picked) {
  const AcDbCurve* curve = &pickedCurve(document, picked.id);
  refuseLocked(document, picked.id);
  if (AcDb2dPolyline::cast(curve) && makeLight(document, picked.id)) curve = &pickedCurve(document, picked.id);
  const auto* polyline = AcDbPolyline::cast(curve);
  if (polyline && polyline->numVerts() < 2) throw Error("L'objet choisi n'a pas de longueur.");
  if (!straight(*curve) && !normalOf(*curve))
    throw Error("Seuls les lignes, les arcs, les cercles et les polylignes se raccordent.");
}

CornerSides cornerSides(Document& document, const PickedEntity& first, const PickedEntity& second) {
  const AcDbCurve &a = pickedCurve(document, first.id), &b = pickedCurve(document, second.id);
  if (first.id == second.id && !AcDbPolyline::cast(&a)) throw Error("Un raccord demande deux objets.");
  CornerSides sides;
  sides.plane.normal = commonNormal(a, b);
  sides.plane.height = sides.plane.own(anyPointOf(a)).z;
  sides.first = readSide(document, first, sides.plane);
  sides.second = readSide(document, second, sides.plane);
  return sides;
}

}  // namespace atelier
