// A block's contents in the place of a reference, for EXPLODE and for INSERT of "*name".
// An array of references is not exploded: it may stand for any number of objects.
#include "atelier/commands/reference_parts.h"

#include <algorithm>
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "hote/adaptation.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {

// Lines and arcs in place of a lightweight polyline.
void explodePolyline(const AcDbPolyline& polyline, Parts& parts) {
  const unsigned count = polyline.numVerts();
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(polyline.normal());
  for (unsigned i = 0; i + (polyline.isClosed() ? 0 : 1) < count; ++i) {
    AcGePoint2d a, b;
    double bulge = 0;
    polyline.getPointAt(i, a);
    polyline.getPointAt((i + 1) % count, b);
    polyline.getBulgeAt(i, bulge);
    if (a.distanceTo(b) == 0) continue;
    const auto world = [&](const AcGePoint2d& p) { return plane * AcGePoint3d(p.x, p.y, polyline.elevation()); };
    const BulgeArc arc = bulgeArc(a, b, bulge);
    std::unique_ptr<AcDbEntity> part;
    if (bulge == 0 || !(arc.radius > 0)) part = std::make_unique<AcDbLine>(world(a), world(b));
    else if (arc.sweep > 0)
      part = std::make_unique<AcDbArc>(world(arc.centre), polyline.normal(), arc.radius, arc.startAngle,
                                       arc.startAngle + arc.sweep);
    else
      part = std::make_unique<AcDbArc>(world(arc.centre), polyline.normal(), arc.radius, arc.startAngle + arc.sweep,
                                       arc.startAngle);
    part->setPropertiesFrom(&polyline);
    parts.push_back(std::move(part));
  }
}

namespace {

// Whether circles in the plane with that normal remain circles.
bool keepsCircles(const AcGeMatrix3d& matrix, const AcGeVector3d& normal) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal);
  const AcGeVector3d u = matrix * (plane * AcGeVector3d::kXAxis), v = matrix * (plane * AcGeVector3d::kYAxis);
  constexpr double kSame = 1e-9;
  const double size = u.length() * v.length();
  return std::abs(u.length() - v.length()) <= kSame * u.length() && std::abs(u.dotProduct(v)) <= kSame * size;
}

std::unique_ptr<AcDbEllipse> ellipseOf(const AcDbEntity& round) {
  constexpr double kTurn = 6.283185307179586;
  const auto made = [&](const auto& of, double from, double sweep) {
    const AcGeVector3d u = AcGeMatrix3d().setToPlaneToWorld(of.normal()) * AcGeVector3d(of.radius(), 0, 0);
    auto ellipse = std::make_unique<AcDbEllipse>(of.center(), of.normal(), u, 1, from, from + sweep);
    ellipse->setPropertiesFrom(&of);
    return ellipse;
  };
  if (const auto* circle = AcDbCircle::cast(&round)) return made(*circle, 0, kTurn);
  if (const auto* arc = AcDbArc::cast(&round)) return made(*arc, arc->startAngle(), arc->totalAngle());
  return nullptr;
}

// Entities to replace a part whose arcs the matrix would turn into ellipses, not yet transformed; empty when the part
// can be transformed as it is.
Parts stretchable(const AcDbEntity& part, const AcGeMatrix3d& matrix) {
  Parts pieces;
  const auto* old = AcDb2dPolyline::cast(&part);
  const auto* light = AcDbPolyline::cast(&part);
  if (light && light->hasBulges() && !keepsCircles(matrix, light->normal())) explodePolyline(*light, pieces);
  if (old && !keepsCircles(matrix, old->normal()))
    if (const auto made = lightPolyline(*old); made->hasBulges()) explodePolyline(*made, pieces);
  const auto* arc = AcDbArc::cast(&part);
  const auto* circle = AcDbCircle::cast(&part);
  if ((arc && !keepsCircles(matrix, arc->normal())) || (circle && !keepsCircles(matrix, circle->normal())))
    pieces.push_back(ellipseOf(part));
  for (auto& piece : pieces)
    if (auto ellipse = ellipseOf(*piece)) piece = std::move(ellipse);
  return pieces;
}

bool isArray(const AcDbBlockReference& reference) {
  constexpr std::string_view kInsert = "AcDbBlockReference";
  const Record& record = AcDbImpObject::of(&reference).record;
  return record.integer(integerField(kInsert, 70)) > 1 || record.integer(integerField(kInsert, 71)) > 1;
}

// Whether the matrix keeps the axes at right angles: a reference can't have any other.
bool isUpright(const AcGeMatrix3d& matrix) {
  const AcGeVector3d x = matrix * AcGeVector3d::kXAxis, y = matrix * AcGeVector3d::kYAxis,
                     z = matrix * AcGeVector3d::kZAxis;
  constexpr double kRight = 1e-9;
  const auto right = [&](const AcGeVector3d& a, const AcGeVector3d& b) {
    return std::abs(a.dotProduct(b)) <= kRight * a.length() * b.length();
  };
  return right(x, y) && right(y, z) && right(z, x);
}

// An entity of a block, and what stands for it: a copy, pieces, or the contents of the block that it shows.
struct Part {
  AcDbObjectId id;
  bool copied = true, opened = false;
  Parts pieces;
};

// A reference inside whose axes would not be at right angles is opened, too, unless it has attributes or is an array.
std::vector<Part> partsOf(AcDbObjectId blockId, const AcGeMatrix3d& matrix, int depth) {
  constexpr int kDeepest = 16;
  std::vector<Part> parts;
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId);
  for (const AcDbObjectId id : adaptation::entityIds(*block)) {
    checkInterruption();
    const AcDbEntityPointer entity(id);
    if (entity.openStatus() != Acad::eOk) continue;
    const AcDbStub* stub = stubOf(entity.object());
    const bool followed = stub->children && !stub->children->empty();
    const auto* inner = AcDbBlockReference::cast(entity.object());
    Part part;
    part.id = id;
    part.pieces = stretchable(*entity, matrix);
    part.opened =
        inner && !followed && depth < kDeepest && !isArray(*inner) && !isUpright(matrix * inner->blockTransform());
    part.copied = !part.opened && part.pieces.empty();
    parts.push_back(std::move(part));
  }
  return parts;
}

// Adds the block's contents, transformed, with their vertices, attributes and dictionaries. What keeps its class is copied
// at once, so that references among the copies, and groups of them, lead to the copies; the rest is added then, and all
// is put in the order of the block, which is the order of drawing.
bool explodeBlock(const Command& c, AcDbObjectId blockId, const AcGeMatrix3d& matrix, int depth) {
  if (AcDbObjectPointer<AcDbBlockTableRecord>(blockId).openStatus() != Acad::eOk) return false;
  std::vector<Part> parts = partsOf(blockId, matrix, depth);
  SelectionSet copied;
  for (const Part& part : parts)
    if (part.copied) copied.add(part.id);
  std::vector<AcDbStub*>& space = *static_cast<AcDbStub*>(c.document.database().currentSpaceId())->children;
  const auto begin = static_cast<std::ptrdiff_t>(space.size());
  c.copies(copied, matrix);
  auto place = begin;
  for (Part& part : parts) {
    const auto end = static_cast<std::ptrdiff_t>(space.size());
    for (auto& piece : part.pieces) {
      piece->transformBy(matrix);
      c.addAsIs(std::move(piece));
    }
    if (part.opened) {
      const AcDbObjectPointer<AcDbBlockReference> inner(part.id);
      explodeBlock(c, inner->blockTableRecord(), matrix * inner->blockTransform(), depth + 1);
    }
    std::rotate(space.begin() + place, space.begin() + end, space.end());
    place += part.copied ? 1 : static_cast<std::ptrdiff_t>(space.size()) - end;
  }
  return true;
}

}  // namespace

bool explodeReference(const Command& c, const AcDbBlockReference& reference) {
  return !isArray(reference) && explodeBlock(c, reference.blockTableRecord(), reference.blockTransform(), 0);
}

}  // namespace atelier
