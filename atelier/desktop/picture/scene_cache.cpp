// A changed entity makes its batch out of date; a new one joins the last batch, since it is drawn over the others; a change to
// anything that entities refer to (layer, style, block), or to their order, makes all batches out of date.
#include "atelier/desktop/picture/scene_cache.h"

#include <algorithm>

#include "atelier/database/objects/draw_order.h"
#include "atelier/database/objects/layouts.h"

namespace atelier::desktop {
namespace {

constexpr std::size_t kBatch = 512;

// The entity of the space that this one is or belongs to, as an attribute or a vertex.
AcDbStub* mainEntity(AcDbStub& stub, const AcDbStub& space) {
  AcDbStub* at = &stub;
  while (at && at->owner != &space) at = at->owner;
  return at;
}

// Whether it stands in a space: then no other one shows it.
bool standsInSpace(const AcDbStub& stub) {
  AcDbStub* block = stub.owner;
  while (block && block->is(AcDbStub::kEntity)) block = block->owner;
  return block && (block == block->database->modelSpace() || isPaperSpace(*block));
}

}  // namespace

SceneCache::SceneCache(AcDbDatabase& database, AcDbStub& space, render::SceneOptions options)
    : database_(database), imp_(AcDbImpDatabase::of(&database)), space_(space), options_(std::move(options)) {
  options_.paper = false;
  imp_.addListener(*this);
}
SceneCache::~SceneCache() { imp_.removeListener(*this); }

void SceneCache::changes(AcDbStub& stub) { changed_.insert(&stub); }

bool SceneCache::refresh() {
  if (!everything_ && changed_.empty()) return false;
  Stale stale;
  for (AcDbStub* stub : changed_) {
    take(*stub, stale);
    if (everything_) break;
  }
  changed_.clear();
  if (!everything_) append(stale);
  if (everything_) {
    all();
  } else {
    for (const std::size_t batch : stale.batches) draw(batch);
  }
  bounds_ = {};
  warnings_.clear();
  for (const Part& list : lists_) {
    bounds_.add(list->bounds());
    for (const std::string& warning : list->warnings)
      if (std::ranges::find(warnings_, warning) == warnings_.end()) warnings_.push_back(warning);
  }
  return everything_ || !stale.batches.empty();
}

void SceneCache::take(AcDbStub& stub, Stale& stale) {
  // Dictionaries and Xrecords have no effect on the picture; tables and blocks have.
  if (!stub.is(AcDbStub::kEntity)) {
    const std::string_view type = imp_.typeName(stub);
    everything_ = everything_ || type == "LAYER" || type == "LTYPE" || type == "STYLE" || type == "SORTENTSTABLE";
    return;
  }
  AcDbStub* main = mainEntity(stub, space_);
  if (!main) {
    everything_ = everything_ || !standsInSpace(stub);
    return;
  }
  const auto known = batchOf_.find(main);
  if (known == batchOf_.end()) stale.fresh.insert(main);
  else stale.batches.insert(known->second);
}

// Entities that come back by an undo may stand between the known ones.
void SceneCache::append(Stale& stale) {
  if (stale.fresh.empty()) return;
  std::vector<AcDbStub*> row;
  const std::vector<AcDbStub*>& all = *space_.children;
  for (auto stub = all.rbegin(); stub != all.rend() && row.size() < stale.fresh.size(); ++stub) {
    if (stale.fresh.contains(*stub)) row.push_back(*stub);
    else if (batchOf_.contains(*stub)) return void(everything_ = true);
  }
  for (auto stub = row.rbegin(); stub != row.rend(); ++stub) append(**stub, stale);
}

void SceneCache::append(AcDbStub& stub, Stale& stale) {
  if (batches_.empty() || batches_.back().entities.size() >= kBatch) {
    batches_.emplace_back();
    lists_.push_back(std::make_shared<render::DisplayList>());
  }
  batches_.back().entities.push_back(&stub);
  batchOf_[&stub] = batches_.size() - 1;
  stale.batches.insert(batches_.size() - 1);
}

void SceneCache::all() {
  batches_.clear();
  batchOf_.clear();
  for (AcDbStub* stub : inDrawOrder(imp_, space_)) {
    if (batches_.empty() || batches_.back().entities.size() >= kBatch) batches_.emplace_back();
    batches_.back().entities.push_back(stub);
    batchOf_[stub] = batches_.size() - 1;
  }
  lists_.assign(batches_.size(), nullptr);
  for (std::size_t i = 0; i < batches_.size(); ++i) draw(i);
  everything_ = false;
}

void SceneCache::draw(std::size_t batch) {
  lists_[batch] =
      std::make_shared<render::DisplayList>(render::drawEntities(database_, batches_[batch].entities, options_));
}

}  // namespace atelier::desktop
