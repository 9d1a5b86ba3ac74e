// The index of one space: a row of extents in drawing order, and a tree over it.
// Inner header of the room.
#pragma once
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

class SpaceIndex {
 public:
  explicit SpaceIndex(const AcDbStub& space) : space_(space), tree_(Tree::parameters_type(), PlanOf{&entries_}) {}
  SpaceIndex(const SpaceIndex&) = delete;
  SpaceIndex& operator=(const SpaceIndex&) = delete;

  void noteEntity(AcDbStub& entity) { changed_.insert(&entity); }
  // The contents of a block have changed: extents of references and dimensions must be worked out again.
  void noteBlocks() { blocksChanged_ = true; }
  // Applies the noted changes and adds new entities.
  void bringUpToDate();

  std::vector<AcDbStub*> query(const AcDbExtents& box) const;
  AcDbExtents extents() const;

 private:
  using Place = std::uint32_t;  // in the row
  using PlanPoint = boost::geometry::model::point<double, 2, boost::geometry::cs::cartesian>;
  using PlanBox = boost::geometry::model::box<PlanPoint>;
  enum class State : std::uint8_t { absent, boxed, boundless };  // erased; with extents; without
  struct Entry {
    AcDbStub* stub;
    AcDbExtents box;
    State state = State::absent;
    bool throughBlock = false;  // its extents are those of a block
  };
  // The tree holds places only; the boxes stand in the row.
  struct PlanOf {
    using result_type = PlanBox;
    const std::vector<Entry>* entries;
    PlanBox operator()(Place place) const;
  };
  using Tree = boost::geometry::index::rtree<Place, boost::geometry::index::quadratic<16>, PlanOf>;

  void start();
  void measure(Entry& entry) const;
  void remeasure(Place place);
  void pack();

  const AcDbStub& space_;
  std::vector<Entry> entries_;  // by the place among the space's children
  std::unordered_map<const AcDbStub*, Place> places_;
  std::vector<Place> throughBlocks_, boundless_;
  std::unordered_set<AcDbStub*> changed_;
  bool blocksChanged_ = false;
  bool packed_ = false;
  Tree tree_;
};

}  // namespace atelier
