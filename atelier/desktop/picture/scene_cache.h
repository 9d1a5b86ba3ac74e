// A space as display lists, in parts of some hundred entities; only changed parts are made again.
// A part is never changed once it has been given out, because a painter on another thread may use it.
#pragma once
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/render/scene/scene.h"

namespace atelier::desktop {

using Part = std::shared_ptr<const render::DisplayList>;

class SceneCache final : private ChangeListener {
 public:
  // The options say how its entities are drawn; their space is this one.
  SceneCache(AcDbDatabase& database, AcDbStub& space, render::SceneOptions options = {});
  ~SceneCache() override;
  SceneCache(const SceneCache&) = delete;
  SceneCache& operator=(const SceneCache&) = delete;

  // Makes the parts that changed since the last call; false when none did.
  bool refresh();
  const std::vector<Part>& parts() const { return lists_; }
  const render::Box& bounds() const { return bounds_; }
  const std::vector<std::string>& warnings() const { return warnings_; }

 private:
  struct Batch {
    std::vector<AcDbStub*> entities;
  };
  void changes(AcDbStub& stub) override;
  void all();
  // What a change makes out of date: the batches that are known, entities that are new.
  struct Stale {
    std::unordered_set<std::size_t> batches;
    std::unordered_set<const AcDbStub*> fresh;
  };
  void take(AcDbStub& stub, Stale& stale);
  void append(Stale& stale);
  void append(AcDbStub& stub, Stale& stale);
  void draw(std::size_t batch);

  AcDbDatabase& database_;
  AcDbImpDatabase& imp_;
  AcDbStub& space_;
  render::SceneOptions options_;
  std::vector<Batch> batches_;
  std::vector<Part> lists_;
  std::unordered_map<const AcDbStub*, std::size_t> batchOf_;
  std::unordered_set<AcDbStub*> changed_;
  bool everything_ = true;
  render::Box bounds_;
  std::vector<std::string> warnings_;
};

}  // namespace atelier::desktop
