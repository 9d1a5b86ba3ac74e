// Finds the entity at a point.
// The spatial index gives the few that can be near; the distance to their strokes is then measured.
#include "atelier/selecting/pick.h"

#include <limits>

#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/selecting/flat_path.h"

namespace atelier {

double pickRadius(Document& document) {
  const SystemVariables& variables = document.variables();
  constexpr double kScreenHeight = 1000;  // pixels; VIEWSIZE units are shown on them
  return variables.integer("PICKBOX", 3) * variables.real("VIEWSIZE", 100) / kScreenHeight;
}

double distanceTo(const AcDbEntity& entity, const AcGePoint3d& point) { return distanceTo(strokesOf(entity), point); }

AcDbObjectId pickAt(Document& document, const AcGePoint3d& point) {
  const double radius = pickRadius(document);
  const AcGeVector3d reach(radius, radius, 0);
  const std::vector<AcDbStub*> near =
      document.spatialIndex().query(document.database().currentSpaceId(), {point - reach, point + reach});
  LayerStates layers(document.imp());
  AcDbStub* nearest = nullptr;
  double least = radius;
  for (auto it = near.rbegin(); it != near.rend(); ++it) {
    AcDbStub& stub = **it;
    const AcDbEntity* entity = AcDbEntity::cast(&document.imp().object(stub));
    if (!entity || !layers.shows(stub)) continue;
    const double distance = distanceTo(*entity, point);
    if (distance < least || (!nearest && distance <= least)) {
      least = distance;
      nearest = &stub;
    }
  }
  return AcDbObjectId(nearest);
}

}  // namespace atelier
