// Where the entities of a drawing's spaces are, in plan: a tree of their extents, so that a window in a large drawing
// doesn't walk it whole. Built when it is first asked, brought up to date when it is asked after changes.
#pragma once
#include <memory>
#include <unordered_map>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

class SpaceIndex;

class SpatialIndex final : private ChangeListener {
 public:
  explicit SpatialIndex(AcDbImpDatabase& database);
  ~SpatialIndex() override;
  SpatialIndex(const SpatialIndex&) = delete;
  SpatialIndex& operator=(const SpatialIndex&) = delete;

  // The main entities of the block record (the model space, a layout or any block) whose extents meet the box in plan,
  // its edge included, in drawing order; those that have no extents (rays, construction lines) are always among them.
  // Erased ones never are; hidden layers are the caller's to pass over. Empty for what holds no entities.
  std::vector<AcDbStub*> query(const AcDbStub* space, const AcDbExtents& box);
  // The box of all entities that have extents; empty when there are none.
  AcDbExtents extents(const AcDbStub* space);

 private:
  void changes(AcDbStub& stub) override;
  SpaceIndex* upToDate(const AcDbStub* space);
  AcDbImpDatabase& database_;
  std::unordered_map<const AcDbStub*, std::unique_ptr<SpaceIndex>> spaces_;
};

}  // namespace atelier
