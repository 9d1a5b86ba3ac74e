// Finds the entity at a point.
// The spatial index gives the few that can be near; the distance to their strokes is then measured.
#include "atelier/selecting/pick.h"

#include <algorithm>
#include <tuple>

#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/selecting/flat_path.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

// What others are drawn on comes after them.
int rank(const AcDbEntity& entity) {
  if (AcDbHatch::cast(&entity)) return 2;
  return AcDbBlockReference::cast(&entity) ? 1 : 0;
}

// The inside of a text is as far as the middle of the pick box, so that a line across it can be picked.
double feltDistance(const std::vector<Stroke>& strokes, const AcGePoint3d& point, double radius) {
  const bool filled = std::ranges::any_of(strokes, &Stroke::filled);
  const double distance = distanceTo(strokes, point);
  return filled ? std::max(distance, radius / 2) : distance;
}

}  // namespace

double pickRadius(Document& document) {
  const Document::Pointing& pointing = document.pointing;
  const SystemVariables& variables = document.variables();
  return std::max<double>(variables.integer("PICKBOX", 3), pointing.leastBox) * variables.real("VIEWSIZE", 100) /
         pointing.screenHeight;
}

double distanceTo(const AcDbEntity& entity, const AcGePoint3d& point) { return distanceTo(strokesOf(entity), point); }

std::vector<AcDbStub*> picksAt(Document& document, const AcGePoint3d& point) {
  struct Pick {
    int rank;
    double distance;
    AcDbStub* stub;
  };
  const double radius = pickRadius(document);
  const AcGeVector3d reach(radius, radius, 0);
  const std::vector<AcDbStub*> near =
      document.spatialIndex().query(document.database().currentSpaceId(), {point - reach, point + reach});
  LayerStates layers(document.imp());
  std::vector<Pick> picks;
  for (auto it = near.rbegin(); it != near.rend(); ++it) {
    const AcDbEntity* entity = AcDbEntity::cast(&document.imp().object(**it));
    if (!entity || !layers.shows(**it)) continue;
    const double distance = feltDistance(strokesOf(*entity), point, radius);
    if (distance <= radius) picks.push_back({rank(*entity), distance, *it});
  }
  std::ranges::stable_sort(
      picks, [](const Pick& a, const Pick& b) { return std::tie(a.rank, a.distance) < std::tie(b.rank, b.distance); });
  std::vector<AcDbStub*> stubs;
  for (const Pick& pick : picks) stubs.push_back(pick.stub);
  return stubs;
}

AcDbObjectId pickAt(Document& document, const AcGePoint3d& point) {
  const std::vector<AcDbStub*> picks = picksAt(document, point);
  AcDbStub* const preferred = document.pointing.preferred;
  if (std::ranges::find(picks, preferred) != picks.end()) return AcDbObjectId(preferred);
  return picks.empty() ? AcDbObjectId() : AcDbObjectId(picks.front());
}

}  // namespace atelier
