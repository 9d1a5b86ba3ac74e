// Keeps the row and tree of each space up to date with its entities.
// A few changes are made in the tree; after many it is built again, which is quicker and gives a better tree.
#include "atelier/document/spatial_index.h"

#include <algorithm>
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/database/entities/block_extents.h"
#include "atelier/document/space_index.h"
#include "hote/adaptation.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

bool isFinite(const AcGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

bool meetInPlan(const AcDbExtents& a, const AcDbExtents& b) {
  return a.minPoint().x <= b.maxPoint().x && b.minPoint().x <= a.maxPoint().x && a.minPoint().y <= b.maxPoint().y &&
         b.minPoint().y <= a.maxPoint().y;
}

// One changed entry in this many is enough to build the tree again.
constexpr std::size_t kRepackShare = 8;

}  // namespace

SpaceIndex::PlanBox SpaceIndex::PlanOf::operator()(Place place) const {
  const AcDbExtents& box = (*entries)[place].box;
  return {{box.minPoint().x, box.minPoint().y}, {box.maxPoint().x, box.maxPoint().y}};
}

void SpaceIndex::measure(Entry& entry) const {
  entry.state = State::absent;
  entry.throughBlock = false;
  if (entry.stub->is(AcDbStub::kErased)) return;
  const AcDbEntity* entity = AcDbEntity::cast(&entry.stub->database->object(*entry.stub));
  if (!entity) return;
  entry.throughBlock = AcDbBlockReference::cast(entity) || AcDbDimension::cast(entity);
  AcDbExtents box;
  const bool boxed = entity->getGeomExtents(box) == Acad::eOk;
  entry.box = box;
  entry.state = boxed ? State::boxed : State::boundless;
}

void SpaceIndex::start() {
  entries_.clear();
  places_.clear();
  throughBlocks_.clear();
  boundless_.clear();
  tree_.clear();
  packed_ = false;
}

void SpaceIndex::pack() {
  std::vector<Place> boxed;
  boxed.reserve(entries_.size());
  for (Place i = 0; i < entries_.size(); ++i)
    if (entries_[i].state == State::boxed) boxed.push_back(i);
  tree_ = Tree(boxed, Tree::parameters_type(), PlanOf{&entries_});
  packed_ = true;
}

void SpaceIndex::remeasure(Place place) {
  Entry& entry = entries_[place];
  if (packed_ && entry.state == State::boxed) tree_.remove(place);
  if (entry.state == State::boundless) std::erase(boundless_, place);
  const bool known = entry.throughBlock;
  measure(entry);
  if (entry.throughBlock && !known) throughBlocks_.push_back(place);
  if (packed_ && entry.state == State::boxed) tree_.insert(place);
  if (entry.state == State::boundless)
    boundless_.insert(std::lower_bound(boundless_.begin(), boundless_.end(), place), place);
}

void SpaceIndex::bringUpToDate() {
  const std::vector<AcDbStub*>& children = *space_.children;
  // Usually entities are only appended; when the children are fewer or in another order the row is made again.
  if (children.size() < entries_.size() || (!entries_.empty() && children[entries_.size() - 1] != entries_.back().stub))
    start();
  const std::size_t fresh = children.size() - entries_.size();
  const std::size_t touched = fresh + changed_.size() + (blocksChanged_ ? throughBlocks_.size() : 0);
  if (touched > 0 && touched * kRepackShare > children.size()) packed_ = false;
  const BlockExtentsKept kept;
  while (!changed_.empty()) {
    checkInterruption();
    const auto place = places_.find(*changed_.begin());
    if (place != places_.end()) remeasure(place->second);
    changed_.erase(changed_.begin());
  }
  if (blocksChanged_)
    for (std::size_t i = 0; i < throughBlocks_.size(); ++i) {
      checkInterruption();
      remeasure(throughBlocks_[i]);
    }
  blocksChanged_ = false;
  entries_.reserve(children.size());
  for (std::size_t i = entries_.size(); i < children.size(); ++i) {
    checkInterruption();
    const Place place = static_cast<Place>(i);
    Entry entry{children[i], {}};
    entries_.push_back(entry);
    places_.emplace(entry.stub, place);
    remeasure(place);
  }
  if (!packed_) pack();
}

std::vector<AcDbStub*> SpaceIndex::query(const AcDbExtents& box) const {
  std::vector<Place> places = boundless_;
  if (isFinite(box.minPoint()) && isFinite(box.maxPoint()) && !adaptation::isEmpty(box)) {
    const PlanBox plan{{box.minPoint().x, box.minPoint().y}, {box.maxPoint().x, box.maxPoint().y}};
    tree_.query(boost::geometry::index::intersects(plan), std::back_inserter(places));
  } else {
    for (Place i = 0; i < entries_.size(); ++i)
      if (entries_[i].state == State::boxed && meetInPlan(entries_[i].box, box)) places.push_back(i);
  }
  std::sort(places.begin(), places.end());
  std::vector<AcDbStub*> found;
  found.reserve(places.size());
  for (const Place place : places) found.push_back(entries_[place].stub);
  return found;
}

AcDbExtents SpaceIndex::extents() const {
  AcDbExtents box;
  for (const Entry& entry : entries_)
    if (entry.state == State::boxed) box.addExt(entry.box);
  return box;
}

SpatialIndex::SpatialIndex(AcDbImpDatabase& database) : database_(database) { database_.addListener(*this); }
SpatialIndex::~SpatialIndex() { database_.removeListener(*this); }

void SpatialIndex::changes(AcDbStub& stub) {
  if (spaces_.empty()) return;
  if (!stub.is(AcDbStub::kEntity)) {
    const std::string_view type = database_.typeName(stub);
    if (type == "STYLE") spaces_.clear();  // the texts of that style have other sizes
    if (type != "BLOCK_RECORD") return;
    for (const auto& [space, index] : spaces_) index->noteBlocks();
    return;
  }
  AcDbStub* main = &stub;  // an attribute or a vertex changes what it belongs to
  while (main->owner && main->owner->is(AcDbStub::kEntity)) main = main->owner;
  for (const auto& [space, index] : spaces_)
    if (space == main->owner) index->noteEntity(*main);
    else index->noteBlocks();
}

SpaceIndex* SpatialIndex::upToDate(const AcDbStub* space) {
  if (!space || !space->children) return nullptr;
  std::unique_ptr<SpaceIndex>& index = spaces_[space];
  if (!index) index = std::make_unique<SpaceIndex>(*space);
  index->bringUpToDate();
  return index.get();
}

std::vector<AcDbStub*> SpatialIndex::query(const AcDbStub* space, const AcDbExtents& box) {
  const SpaceIndex* index = upToDate(space);
  return index ? index->query(box) : std::vector<AcDbStub*>();
}

AcDbExtents SpatialIndex::extents(const AcDbStub* space) {
  const SpaceIndex* index = upToDate(space);
  return index ? index->extents() : AcDbExtents();
}

}  // namespace atelier
