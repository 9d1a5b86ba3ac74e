// What stands under a point.
// Extents are looked at first; the strokes of few entities are then measured.
#include "atelier/editor/pick.h"

#include <limits>

#include "atelier/editor/document.h"
#include "atelier/editor/flat_path.h"
#include "atelier/editor/layer_states.h"

namespace atelier {

double pickRadius(Document& document) {
  const SystemVariables& variables = document.variables();
  constexpr double kScreenHeight = 1000;  // pixels of the view that VIEWSIZE units fill
  return variables.integer("PICKBOX", 3) * variables.real("VIEWSIZE", 100) / kScreenHeight;
}

double distanceTo(const AcDbEntity& entity, const AcGePoint3d& point) {
  return distanceTo(strokesOf(entity), point);
}

AcDbObjectId pickAt(Document& document, const AcGePoint3d& point) {
  AcDbStub* space = document.database().currentSpaceId();
  if (!space || !space->children) return {};
  const double radius = pickRadius(document);
  LayerStates layers(document.imp());
  AcDbStub* nearest = nullptr;
  double least = radius;
  for (auto it = space->children->rbegin(); it != space->children->rend(); ++it) {
    AcDbStub& stub = **it;
    if (stub.is(AcDbStub::kErased)) continue;
    const AcDbEntity* entity = AcDbEntity::cast(&document.imp().object(stub));
    AcDbExtents box;
    const bool boxed = entity && entity->getGeomExtents(box) == Acad::eOk;
    if (!entity || (boxed && (point.x < box.minPoint().x - radius || point.x > box.maxPoint().x + radius ||
                              point.y < box.minPoint().y - radius || point.y > box.maxPoint().y + radius)))
      continue;
    if (!layers.shows(stub)) continue;
    const double distance = distanceTo(*entity, point);
    if (distance < least || (!nearest && distance <= least)) {
      least = distance;
      nearest = &stub;
    }
  }
  return AcDbObjectId(nearest);
}

}  // namespace atelier
