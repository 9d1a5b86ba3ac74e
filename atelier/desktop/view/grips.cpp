// Grips of lines and polylines change their shape; a grip of any other entity moves it.
#include "atelier/desktop/view/grips.h"

#include "atelier/document/layer_states.h"
#include "hote/dbents.h"
#include "hote/dbpl.h"

namespace atelier::desktop {
namespace {

constexpr unsigned kMostVertices = 500;  // a polyline with more shows no grips

AcGePoint3d middle(const AcGePoint3d& a, const AcGePoint3d& b) { return a + (b - a) * 0.5; }

std::vector<AcGePoint3d> places(const AcDbEntity& entity) {
  if (const auto* line = AcDbLine::cast(&entity))
    return {line->startPoint(), middle(line->startPoint(), line->endPoint()), line->endPoint()};
  if (const auto* text = AcDbText::cast(&entity)) return {text->position()};
  if (const auto* insert = AcDbBlockReference::cast(&entity)) return {insert->position()};
  if (const auto* point = AcDbPoint::cast(&entity)) return {point->position()};
  if (const auto* circle = AcDbCircle::cast(&entity)) return {circle->center()};
  if (const auto* arc = AcDbArc::cast(&entity)) return {arc->center()};
  std::vector<AcGePoint3d> points;
  if (const auto* polyline = AcDbPolyline::cast(&entity); polyline && polyline->numVerts() <= kMostVertices)
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
      AcGePoint3d p;
      if (polyline->getPointAt(i, p) == Acad::eOk) points.push_back(p);
    }
  return points;
}

bool reshape(AcDbEntity& entity, int index, const AcGePoint3d& from, const AcGePoint3d& to) {
  if (auto* line = AcDbLine::cast(&entity); line && index != 1)
    return (index == 0 ? line->setStartPoint(to) : line->setEndPoint(to)) == Acad::eOk;
  // Vertices are moved in plan; a polyline in another plane keeps its shape.
  if (auto* polyline = AcDbPolyline::cast(&entity); polyline && polyline->normal().z > 0.999999)
    return polyline->setPointAt(static_cast<unsigned>(index), {to.x, to.y}) == Acad::eOk;
  AcGeMatrix3d shift;
  shift.setToTranslation(AcGeVector3d(to.x - from.x, to.y - from.y, 0));
  return entity.transformBy(shift) == Acad::eOk;
}

}  // namespace

std::vector<Grip> gripsOf(AcDbObjectId id) {
  std::vector<Grip> grips;
  AcDbEntityPointer entity(id);
  if (entity.openStatus() != Acad::eOk) return grips;
  for (const AcGePoint3d& at : places(*entity)) grips.push_back({id, static_cast<int>(grips.size()), at});
  return grips;
}

bool moveGrip(Document& document, const Grip& grip, const AcGePoint3d& to) {
  AcDbStub* stub = grip.entity;
  if (!stub || LayerStates(document.imp()).isLocked(*stub)) return false;
  document.imp().journal.mark();
  {
    AcDbEntityPointer entity(grip.entity, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk || !reshape(*entity, grip.index, grip.at, to)) return false;
  }
  document.commandEnded();
  return true;
}

}  // namespace atelier::desktop
