// Entities to strokes, class by class.
// A class without a function here gives the rectangle of its extents.
#include "atelier/selecting/flat_path.h"

#include <algorithm>
#include <memory>
#include <numbers>
#include <utility>

#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/entities/block_clip.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/pictures/pictures.h"
#include "atelier/database/records/flags.h"
#include "atelier/geometry/bspline.h"
#include "atelier/selecting/clipped_strokes.h"
#include "hote/adaptation.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

constexpr int kDeepest = 16;              // blocks inside blocks
constexpr double kTurnSteps = 128;        // chords of a full circle
constexpr double kEndless = 1e7;          // half the length at which rays and construction lines are cut
constexpr double kCurveTolerance = 1e-3;  // chord of a spline, in parts of its extents

using Strokes = std::vector<Stroke>;

// Nested blocks and arrays can stand for billions of entities: a walk ends after a number of visits, and the reference
// then gives the rectangle of its extents.
struct Walk {
  Strokes strokes;
  std::size_t visits = 0;
  static constexpr std::size_t kMost = 100'000;
  bool full() const { return visits > kMost; }
};

// Centre plus cos a times u plus sin a times v, from a over the sweep.
void addArc(Stroke& stroke, const AcGePoint3d& centre, const AcGeVector3d& u, const AcGeVector3d& v, double from,
            double sweep) {
  const int steps = std::max(2, static_cast<int>(std::ceil(kTurnSteps * std::abs(sweep) / (2 * std::numbers::pi))));
  for (int i = 0; i <= steps; ++i) {
    const double a = from + sweep * i / steps;
    stroke.points.push_back(centre + u * std::cos(a) + v * std::sin(a));
  }
}

void addPlaneArc(Stroke& stroke, const AcGePoint3d& centre, const AcGeVector3d& normal, double radius, double from,
                 double sweep) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal);
  addArc(stroke, centre, plane * AcGeVector3d(radius, 0, 0), plane * AcGeVector3d(0, radius, 0), from, sweep);
}

struct PlaneVertex {
  AcGePoint2d point;
  double bulge;
};

// The outline of vertices with bulges, in the plane with this normal and elevation.
Stroke bulgedStroke(const std::vector<PlaneVertex>& vertices, bool closed, const AcGeVector3d& normal,
                    double elevation) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal);
  const auto world = [&](const AcGePoint2d& p) { return plane * AcGePoint3d(p.x, p.y, elevation); };
  Stroke stroke;
  const std::size_t count = vertices.size();
  for (std::size_t i = 0; i < count; ++i) {
    stroke.points.push_back(world(vertices[i].point));
    if (i + 1 == count && !closed) break;
    const PlaneVertex& next = vertices[(i + 1) % count];
    if (vertices[i].bulge == 0) continue;
    const BulgeArc arc = bulgeArc(vertices[i].point, next.point, vertices[i].bulge);
    if (arc.radius > 0)
      addArc(stroke, world(arc.centre), plane * AcGeVector3d(arc.radius, 0, 0), plane * AcGeVector3d(0, arc.radius, 0),
             arc.startAngle, arc.sweep);
  }
  if (closed && count > 0) stroke.points.push_back(world(vertices.front().point));
  return stroke;
}

Stroke lightPolyline(const AcDbPolyline& polyline) {
  std::vector<PlaneVertex> vertices(polyline.numVerts());
  for (unsigned i = 0; i < vertices.size(); ++i) {
    polyline.getPointAt(i, vertices[i].point);
    polyline.getBulgeAt(i, vertices[i].bulge);
  }
  return bulgedStroke(vertices, polyline.isClosed(), polyline.normal(), polyline.elevation());
}

// The vertices of a polyline whose vertices are entities; those of a spline's frame are left out.
template <class TAKE>
void eachVertexOf(const AcDbEntity& polyline, TAKE take) {
  const AcDbStub* stub = stubOf(&polyline);
  if (!stub || !stub->children) return;
  for (AcDbStub* child : *stub->children) {
    if (child->is(AcDbStub::kErased)) continue;
    const AcDbVertex* vertex = AcDbVertex::cast(&stub->database->object(*child));
    if (vertex && !(vertex->flags() & VertexFlags::kFrame)) take(*vertex);
  }
}

Stroke oldPolyline(const AcDb2dPolyline& polyline) {
  std::vector<PlaneVertex> vertices;
  eachVertexOf(polyline, [&](const AcDbVertex& v) {
    vertices.push_back({{v.position().x, v.position().y}, v.bulge()});
  });
  return bulgedStroke(vertices, polyline.isClosed(), polyline.normal(), polyline.elevation());
}

Stroke spacePolyline(const AcDb3dPolyline& polyline) {
  Stroke stroke;
  eachVertexOf(polyline, [&](const AcDbVertex& v) { stroke.points.push_back(v.position()); });
  if (polyline.isClosed() && !stroke.points.empty()) stroke.points.push_back(stroke.points.front());
  return stroke;
}

Stroke splineStroke(const AcDbSpline& spline) {
  int degree = 0;
  bool rational = false, closed = false, periodic = false;
  AcGePoint3dArray points;
  AcGeDoubleArray knots, weights;
  double pointTolerance = 0, knotTolerance = 0;
  Stroke stroke;
  if (spline.getNurbsData(degree, rational, closed, periodic, points, knots, weights, pointTolerance, knotTolerance) !=
      Acad::eOk)
    return stroke;
  Nurbs curve;
  curve.degree = degree;
  AcDbExtents box;
  for (int i = 0; i < points.length(); ++i) {
    curve.points.push_back(points[i]);
    box.addPoint(points[i]);
  }
  for (int i = 0; i < knots.length(); ++i) curve.knots.push_back(knots[i]);
  if (rational)
    for (int i = 0; i < weights.length(); ++i) curve.weights.push_back(weights[i]);
  if (!adaptation::isEmpty(box))
    stroke.points = sampleNurbs(curve, kCurveTolerance * box.minPoint().distanceTo(box.maxPoint()));
  return stroke;
}

Stroke rectangle(const AcDbExtents& box) {
  const AcGePoint3d &a = box.minPoint(), &b = box.maxPoint();
  return {{a, {b.x, a.y, a.z}, b, {a.x, b.y, b.z}, a}, true};
}

template <class SHAPE, class POINT>
Stroke quadrilateral(const SHAPE& shape, POINT point, std::initializer_list<int> order) {
  Stroke stroke;
  for (const int i : order) {
    AcGePoint3d p;
    if ((shape.*point)(i, p) == Acad::eOk) stroke.points.push_back(p);
  }
  if (!stroke.points.empty()) stroke.points.push_back(stroke.points.front());
  stroke.filled = true;
  return stroke;
}

void collect(const AcDbEntity& entity, const AcGeMatrix3d* matrix, int depth, Walk& walk);

void collectBlock(const AcDbImpDatabase& database, const AcDbStub* block, const AcGeMatrix3d& matrix, int depth,
                  Walk& walk) {
  if (!block || !block->children || depth >= kDeepest) return;
  for (AcDbStub* child : *block->children) {
    if (walk.full()) return;
    if (child->is(AcDbStub::kErased)) continue;
    const AcDbEntity* part = AcDbEntity::cast(&const_cast<AcDbImpDatabase&>(database).object(*child));
    // A reference doesn't show attribute definitions.
    if (part && !AcDbAttributeDefinition::cast(part)) collect(*part, &matrix, depth + 1, walk);
  }
}

// The reference at each place of its array.
void collectArray(const AcDbBlockReference& reference, const AcGeMatrix3d* matrix, int depth, Walk& walk) {
  constexpr std::string_view kInsert = "AcDbBlockReference";
  const AcDbStub* stub = stubOf(&reference);
  const Record& record = AcDbImpObject::of(&reference).record;
  const std::int64_t columns = std::max<std::int64_t>(record.integer(integerField(kInsert, 70)), 1);
  const std::int64_t rows = std::max<std::int64_t>(record.integer(integerField(kInsert, 71)), 1);
  const double across = record.real(realField(kInsert, 44)), up = record.real(realField(kInsert, 45));
  const AcGeMatrix3d own = reference.blockTransform();
  const std::vector<AcGePoint3d> clip = blockClip(*stub->database, record);
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(reference.normal()) *
                             AcGeMatrix3d::rotation(reference.rotation(), AcGeVector3d::kZAxis);
  for (std::int64_t row = 0; row < rows && !walk.full(); ++row)
    for (std::int64_t column = 0; column < columns && !walk.full(); ++column) {
      ++walk.visits;  // empty blocks count, too
      const AcGeVector3d step(static_cast<double>(column) * across, static_cast<double>(row) * up, 0);
      const AcGeMatrix3d placed = AcGeMatrix3d::translation(plane * step) * own;
      const AcGeMatrix3d world = matrix ? *matrix * placed : placed;
      if (clip.empty()) {
        collectBlock(*stub->database, reference.blockTableRecord(), world, depth, walk);
        continue;
      }
      std::vector<AcGePoint3d> corners = clip;
      for (AcGePoint3d& corner : corners) corner.transformBy(world);
      Strokes before = std::exchange(walk.strokes, {});
      collectBlock(*stub->database, reference.blockTableRecord(), world, depth, walk);
      std::ranges::move(clipped(walk.strokes, corners), std::back_inserter(before));
      walk.strokes = std::move(before);
    }
}

void collectReference(const AcDbBlockReference& reference, const AcGeMatrix3d* matrix, int depth, Walk& walk) {
  const AcDbStub* stub = stubOf(&reference);
  if (!stub) return;
  // The reference is opened so that parsing a large block doesn't drop it from memory.
  const AcDbObjectPointer<AcDbBlockReference> held(reference.objectId());
  collectArray(reference, matrix, depth, walk);
  if (!stub->children) return;
  for (AcDbStub* child : *stub->children) {
    const AcDbAttribute* attribute =
        child->is(AcDbStub::kErased) ? nullptr : AcDbAttribute::cast(&stub->database->object(*child));
    if (attribute && !attribute->isInvisible()) collect(*attribute, matrix, depth + 1, walk);
  }
}

Stroke simpleStroke(const AcDbEntity& entity) {
  constexpr double kTurn = 2 * std::numbers::pi;
  Stroke stroke;
  if (const auto* line = AcDbLine::cast(&entity)) return {{line->startPoint(), line->endPoint()}, false};
  if (const auto* light = AcDbPolyline::cast(&entity)) return lightPolyline(*light);
  if (const auto* old = AcDb2dPolyline::cast(&entity)) return oldPolyline(*old);
  if (const auto* space = AcDb3dPolyline::cast(&entity)) return spacePolyline(*space);
  if (const auto* spline = AcDbSpline::cast(&entity)) return splineStroke(*spline);
  if (const auto* point = AcDbPoint::cast(&entity)) return {{point->position()}, false};
  if (const auto* solid = AcDbSolid::cast(&entity)) return quadrilateral(*solid, &AcDbSolid::getPointAt, {0, 1, 3, 2});
  if (const auto* face = AcDbFace::cast(&entity)) return quadrilateral(*face, &AcDbFace::getVertexAt, {0, 1, 2, 3});
  if (const auto* ray = AcDbRay::cast(&entity))
    return {{ray->basePoint(), ray->basePoint() + ray->unitDir() * kEndless}, false};
  if (const auto* line = AcDbXline::cast(&entity))
    return {{line->basePoint() + line->unitDir() * -kEndless, line->basePoint() + line->unitDir() * kEndless}, false};
  if (const auto* circle = AcDbCircle::cast(&entity)) {
    addPlaneArc(stroke, circle->center(), circle->normal(), circle->radius(), 0, kTurn);
  } else if (const auto* arc = AcDbArc::cast(&entity)) {
    addPlaneArc(stroke, arc->center(), arc->normal(), arc->radius(), arc->startAngle(), arc->totalAngle());
  } else if (const auto* ellipse = AcDbEllipse::cast(&entity)) {
    const AcGeVector3d u = ellipse->majorAxis();
    double sweep = ellipse->endParam() - ellipse->startParam();
    if (sweep <= 0) sweep += kTurn;
    addArc(stroke, ellipse->center(), u, ellipse->normal().crossProduct(u) * ellipse->radiusRatio(),
           ellipse->startParam(), sweep);
  } else {
    AcDbExtents box;
    if (entity.getGeomExtents(box) == Acad::eOk && !adaptation::isEmpty(box)) return rectangle(box);
  }
  return stroke;
}

void collect(const AcDbEntity& entity, const AcGeMatrix3d* matrix, int depth, Walk& walk) {
  ++walk.visits;
  if (const auto* reference = AcDbBlockReference::cast(&entity))
    return collectReference(*reference, matrix, depth, walk);
  if (hasParts(AcDbImpObject::of(&entity).record.type()))
    return eachPartEntity(entity, [&](const AcDbEntity& part) {
      if (!walk.full()) collect(part, matrix, depth + 1, walk);
    });
  Stroke stroke = simpleStroke(entity);
  if (stroke.points.empty()) return;
  if (matrix)
    for (AcGePoint3d& p : stroke.points) p.transformBy(*matrix);
  walk.strokes.push_back(std::move(stroke));
}

}  // namespace

std::vector<Stroke> strokesOf(const AcDbEntity& entity) {
  const AcDbEntityPointer held(entity.objectId());
  Walk walk;
  collect(entity, nullptr, 0, walk);
  AcDbExtents box;
  if (walk.full() && entity.getGeomExtents(box) == Acad::eOk) return {rectangle(box)};
  return std::move(walk.strokes);
}

}  // namespace atelier
