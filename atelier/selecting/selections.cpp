// Selecting by filter and by place.
// The spatial index gives the few that can match; their strokes decide.
#include "atelier/selecting/selections.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "atelier/base/interruption.h"
#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/selecting/flat_path.h"

namespace atelier {
namespace {

using Set = std::shared_ptr<SelectionSet>;

AcDbExtents extentsOf(std::span<const AcGePoint3d> points) {
  AcDbExtents box;
  for (const AcGePoint3d& p : points) box.addPoint(p);
  return box;
}

// Shown entities of the current space whose extents overlap the box in plan, latest first.
template <class VISIT>
void entitiesNear(Document& document, const AcDbExtents& box, VISIT visit) {
  LayerStates layers(document.imp());
  const std::vector<AcDbStub*> near = document.spatialIndex().query(document.database().currentSpaceId(), box);
  for (auto it = near.rbegin(); it != near.rend(); ++it) {
    checkInterruption();
    const AcDbEntity* entity = AcDbEntity::cast(&document.imp().object(**it));
    if (entity && layers.shows(**it)) visit(**it, *entity);
  }
}

bool takes(PolygonMode mode, std::span<const Stroke> strokes, std::span<const AcGePoint3d> points) {
  switch (mode) {
    case PolygonMode::window: return insidePolygon(strokes, points);
    case PolygonMode::crossing: return touchesPolygon(strokes, points);
    default: return crossesLine(strokes, points);
  }
}

// Asks once for each type, so that a walk over all passes most entities without looking at them.
class AdmittedTypes {
 public:
  explicit AdmittedTypes(const SelectionFilter& filter) : filter_(filter) {}
  bool admit(const AcDbStub& stub) {
    if (stub.type >= known_.size()) known_.resize(stub.type + 1u);
    std::optional<bool>& known = known_[stub.type];
    if (!known) known = filter_.admits(stub.database->typeName(stub));
    return *known;
  }

 private:
  const SelectionFilter& filter_;
  std::vector<std::optional<bool>> known_;
};

void addSpace(SelectionSet& set, AcDbStub* space, const SelectionFilter& filter) {
  if (!space || !space->children) return;
  AdmittedTypes types(filter);
  for (auto it = space->children->rbegin(); it != space->children->rend(); ++it) {
    checkInterruption();
    if (!(*it)->is(AcDbStub::kErased) && types.admit(**it) && filter.matchesAdmitted(**it)) set.append(*it);
  }
}

}  // namespace

Set selectAll(AcDbImpDatabase& database, const SelectionFilter& filter) {
  auto set = std::make_shared<SelectionSet>();
  AcDbStub* model = database.modelSpace();
  addSpace(*set, model, filter);
  for (AcDbStub* block : *database.table("BLOCK_RECORD")->children)
    if (block != model && !block->is(AcDbStub::kErased) &&
        upperCase(database.recordName(*block)).starts_with("*PAPER_SPACE"))
      addSpace(*set, block, filter);
  return set;
}

Set selectPolygon(Document& document, std::span<const AcGePoint3d> points, PolygonMode mode,
                  const SelectionFilter& filter) {
  auto set = std::make_shared<SelectionSet>();
  if (points.size() < (mode == PolygonMode::fence ? 2u : 3u)) return set;
  entitiesNear(document, extentsOf(points), [&](AcDbStub& stub, const AcDbEntity& entity) {
    if (takes(mode, strokesOf(entity), points) && filter.matches(stub)) set->append(&stub);
  });
  return set;
}

Set selectBox(Document& document, const AcGePoint3d& a, const AcGePoint3d& b, bool crossing,
              const SelectionFilter& filter) {
  const AcGePoint3d corners[] = {a, {b.x, a.y, a.z}, b, {a.x, b.y, a.z}};
  return selectPolygon(document, corners, crossing ? PolygonMode::crossing : PolygonMode::window, filter);
}

// --- sets that handlers hold

namespace {
// The first word of a name is the set's address; the second is 1, unlike that of an entity's name.
std::unordered_map<const void*, std::shared_ptr<SelectionSet>> held;
}  // namespace

void holdSelection(const std::shared_ptr<SelectionSet>& set, ads_name name) {
  held[set.get()] = set;
  name[0] = reinterpret_cast<std::int64_t>(set.get());
  name[1] = 1;
}

std::shared_ptr<SelectionSet> heldSelection(const ads_name name) {
  const auto it = held.find(reinterpret_cast<const void*>(name[0]));
  return name[1] == 1 && it != held.end() ? it->second : nullptr;
}

SelectionSet* selectionOf(const ads_name name) {
  return name[1] == 1 && name[0] != 0 ? reinterpret_cast<SelectionSet*>(name[0]) : nullptr;
}

bool releaseSelection(const ads_name name) { return held.erase(reinterpret_cast<const void*>(name[0])) > 0; }

}  // namespace atelier
