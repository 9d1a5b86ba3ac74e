// Finds the entities in a part of the drawing, in plan, with a tree of their extents instead of a walk over all. The
// tree is built at the first query and brought up to date at queries after changes.
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

  // The main entities of a block record (the model space, a layout or any block) whose extents meet the box in plan, its
  // edge included, in drawing order. Entities without extents (rays, construction lines) are always included, erased
  // ones never; the caller leaves out hidden layers. Empty for any other stub.
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
