// Curve entities as geometry: one short function for each class.
// Pieces get the parameters that the host's curves have.
#include "atelier/database/curves/curve_geometry.h"

#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/geometry/turns.h"

namespace atelier {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
using Result = std::shared_ptr<const Curve>;

Result geometryOf(const AcDbLine& line) {
  const AcGePoint3d a = line.startPoint(), b = line.endPoint();
  return Curve::of({{Straight{a, b}, 0, a.distanceTo(b)}}, false);
}

Result endless(const AcGePoint3d& base, const AcGeVector3d& direction, bool before) {
  if (direction.isZeroLength()) return nullptr;
  return Curve::of({{Straight{base, base + direction, before, true}, 0, 1}}, false);
}
Result geometryOf(const AcDbRay& ray) { return endless(ray.basePoint(), ray.unitDir(), false); }
Result geometryOf(const AcDbXline& line) { return endless(line.basePoint(), line.unitDir(), true); }

Result round(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius, double from, double to,
             bool closed) {
  if (!(radius > 0)) return nullptr;
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal);
  return Curve::of(
      {{Elliptic{centre, plane * AcGeVector3d(radius, 0, 0), plane * AcGeVector3d(0, radius, 0), from, to}, from, to}},
      closed);
}
Result geometryOf(const AcDbCircle& circle) {
  return round(circle.center(), circle.normal(), circle.radius(), 0, kTurn, true);
}
Result geometryOf(const AcDbArc& arc) {
  return round(arc.center(), arc.normal(), arc.radius(), arc.startAngle(), arc.startAngle() + arc.totalAngle(), false);
}

Result geometryOf(const AcDbEllipse& ellipse) {
  const AcGeVector3d u = ellipse.majorAxis(), v = ellipse.normal().normal().crossProduct(u) * ellipse.radiusRatio();
  if (!(u.length() > 0) || !(v.length() > 0)) return nullptr;
  const double from = ellipse.startParam(), to = from + sweepBetween(from, ellipse.endParam());
  return Curve::of({{Elliptic{ellipse.center(), u, v, from, to}, from, to}}, ellipse.isClosed());
}

struct SplineGeometry : AcDbImpObject::Decoded {
  Result curve;
  void encode(Record&) const override {}
};

Result geometryOf(const AcDbSpline& spline) {
  AcDbImpObject& imp = AcDbImpObject::of(&spline);
  if (imp.decoded) return static_cast<SplineGeometry&>(*imp.decoded).curve;
  auto kept = std::make_unique<SplineGeometry>();
  const auto shape = splineShape(nurbsOf(spline));
  // A curve whose points all coincide is no curve, though its data are sound.
  const auto elsewhere = [&](const AcGePoint3d& p) { return p.distanceTo(shape->data->points[0]) > 0; };
  if (shape && std::any_of(shape->data->points.begin(), shape->data->points.end(), elsewhere))
    kept->curve = Curve::of({{*shape, shape->pieces->front().from, shape->pieces->back().to}}, spline.isClosed());
  const Result curve = kept->curve;
  imp.decoded = std::move(kept);
  return curve;
}

struct Corner {
  AcGePoint3d point;
  double bulge;
};

Result cornered(const std::vector<Corner>& corners, bool closed, const AcGeVector3d& normal) {
  const std::size_t count = corners.size();
  const bool wide = std::any_of(corners.begin(), corners.end(),
                                [&](const Corner& c) { return c.point.distanceTo(corners[0].point) > 0; });
  if (count < 2 || !wide) return nullptr;
  std::vector<Piece> pieces;
  pieces.reserve(count);
  for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
    const double from = static_cast<double>(i);
    pieces.push_back(
        {bulgeShape(corners[i].point, corners[(i + 1) % count].point, corners[i].bulge, normal), from, from + 1});
  }
  return Curve::of(std::move(pieces), closed);
}

Result geometryOf(const AcDbPolyline& polyline) {
  PolylineVertices& vertices = verticesOf(&polyline);
  if (vertices.curve) return vertices.curve;
  std::vector<Corner> corners;
  corners.reserve(vertices.list.size());
  for (const PolylineVertex& v : vertices.list)
    corners.push_back({toWorld(AcGePoint3d(v.point.x, v.point.y, vertices.elevation), vertices.normal), v.bulge});
  return vertices.curve = cornered(corners, vertices.closed, vertices.normal);
}

Result geometryOf(const AcDb2dPolyline& polyline) {
  const AcGeVector3d normal = polyline.normal();
  std::vector<Corner> corners;
  for (const DrawnVertex& v : drawnVertices(polyline))
    corners.push_back({toWorld(AcGePoint3d(v.position.x, v.position.y, polyline.elevation()), normal), v.bulge});
  return cornered(corners, polyline.isClosed(), normal);
}

Result geometryOf(const AcDb3dPolyline& polyline) {
  std::vector<Corner> corners;
  for (const DrawnVertex& v : drawnVertices(polyline)) corners.push_back({v.position, 0});
  return cornered(corners, polyline.isClosed(), AcGeVector3d::kZAxis);
}

template <class... CLASS>
Result firstOf(const AcDbCurve& entity) {
  Result result;
  (void)((CLASS::cast(&entity) && (result = geometryOf(static_cast<const CLASS&>(entity)), true)) || ...);
  return result;
}

}  // namespace

std::shared_ptr<const Curve> curveOf(const AcDbCurve& entity) {
  return firstOf<AcDbPolyline, AcDbLine, AcDbSpline, AcDbXline, AcDbArc, AcDbCircle, AcDbEllipse, AcDb2dPolyline,
                 AcDb3dPolyline, AcDbRay>(entity);
}

std::vector<DrawnVertex> drawnVertices(const AcDbCurve& polyline) {
  std::vector<DrawnVertex> out;
  const AcDbStub* stub = stubOf(&polyline);
  if (!stub || !stub->children) return out;
  const AcDbEntityPointer held(polyline.objectId());  // so that it isn't dropped from memory
  for (AcDbStub* child : *stub->children) {
    if (child->is(AcDbStub::kErased)) continue;
    const AcDbVertex* vertex = AcDbVertex::cast(&stub->database->object(*child));
    if (vertex && !(vertex->flags() & VertexFlags::kFrame))
      out.push_back({vertex->position(), vertex->bulge(), vertex->startWidth(), vertex->endWidth()});
  }
  return out;
}

}  // namespace atelier
