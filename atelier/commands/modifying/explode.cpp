// EXPLODE: replaces block references and polylines by their parts.
// Parts of a block keep their layer and colour, parts of a polyline get those of the polyline. An array of references
// is not exploded: it may stand for any number of objects.
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

using Parts = std::vector<std::unique_ptr<AcDbEntity>>;

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

void explodeSpacePolyline(const AcDb3dPolyline& polyline, Parts& parts) {
  const auto vertices = drawnVertices(polyline);
  for (std::size_t i = 0; i + (polyline.isClosed() ? 0 : 1) < vertices.size(); ++i) {
    parts.push_back(std::make_unique<AcDbLine>(vertices[i].position, vertices[(i + 1) % vertices.size()].position));
    parts.back()->setPropertiesFrom(&polyline);
  }
}

// Appends the parts; false for an entity that can't be exploded.
bool partsOf(const AcDbEntity& entity, Parts& parts) {
  if (const auto* light = AcDbPolyline::cast(&entity)) {
    explodePolyline(*light, parts);
  } else if (const auto* old = AcDb2dPolyline::cast(&entity)) {
    explodePolyline(*lightPolyline(*old), parts);
  } else if (const auto* space = AcDb3dPolyline::cast(&entity)) {
    explodeSpacePolyline(*space, parts);
  } else {
    AcArray<AcRxObject*> pieces;
    if (entity.explode(pieces) != Acad::eOk) return false;
    for (int i = 0; i < pieces.length(); ++i)
      if (AcDbEntity* piece = AcDbEntity::cast(pieces[i])) parts.emplace_back(piece);
      else delete pieces[i];
  }
  return !parts.empty();
}

bool explodeInto(const Command& c, const AcDbEntity& entity) {
  Parts parts;
  if (!partsOf(entity, parts)) return false;
  for (auto& part : parts) c.addAsIs(std::move(part));
  return true;
}

// --- references

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

// Adds the block's contents, transformed, with their vertices and attributes. A reference inside whose axes would not
// be at right angles is exploded, too, unless it has attributes or is an array.
bool explodeBlock(const Command& c, AcDbObjectId blockId, const AcGeMatrix3d& matrix, int depth) {
  constexpr int kDeepest = 16;
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId);
  if (block.openStatus() != Acad::eOk) return false;
  for (const AcDbObjectId id : block->entityIds()) {
    checkInterruption();
    const AcDbEntityPointer entity(id);
    if (entity.openStatus() != Acad::eOk || entity->isKindOf(AcDbAttributeDefinition::desc())) continue;
    Parts parts = stretchable(*entity, matrix);
    const AcDbStub* stub = stubOf(entity.object());
    const bool followed = stub->children && !stub->children->empty();
    const auto* inner = AcDbBlockReference::cast(entity.object());
    if (inner && !followed && depth < kDeepest && !isArray(*inner) && !isUpright(matrix * inner->blockTransform())) {
      explodeBlock(c, inner->blockTableRecord(), matrix * inner->blockTransform(), depth + 1);
      continue;
    }
    if (parts.empty() && followed) {
      SelectionSet one;
      one.add(id);
      c.copies(one, matrix);
      continue;
    }
    if (parts.empty()) parts.emplace_back(static_cast<AcDbEntity*>(entity->clone()));
    for (auto& part : parts) {
      part->transformBy(matrix);
      c.addAsIs(std::move(part));
    }
  }
  return true;
}

bool explodeReference(const Command& c, const AcDbBlockReference& reference) {
  return !isArray(reference) && explodeBlock(c, reference.blockTableRecord(), reference.blockTransform(), 0);
}

// A program gives one answer without Enter, unless QAFLAGS asks for the same questions as for a user.
CommandTask explode(Command& c) {
  const bool single =
      c.document.prompter().source->isProgram() && (c.document.variables().integer("QAFLAGS", 0) & 1) == 0;
  const auto chosen = co_await c.objects(single);
  if (!chosen.given()) co_return;
  int kept = 0;
  // An object's parts are added before it is erased, so that an interruption loses nothing.
  c.change(*chosen.value, [&](AcDbEntity& entity) {
    const auto* reference = AcDbBlockReference::cast(&entity);
    if (!(reference ? explodeReference(c, *reference) : explodeInto(c, entity))) {
      ++kept;
      return;
    }
    entity.erase();
  });
  if (kept > 0) c.print("\n" + std::to_string(kept) + " objet(s) ne se décomposent pas.");
}

constexpr CommandRow kTable[] = {
    {"EXPLODE", "X DECOMPOS", explode, "Décompose des blocs et des polylignes."},
};

}  // namespace

std::span<const CommandRow> explodeCommands() { return kTable; }

}  // namespace atelier
