// A selection set: entities in the order in which they were selected, each once.
// Most sets are filled once and walked: the index by entity is made at the first search for one.
#pragma once
#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

#include "atelier/database/objects/stub.h"
#include "hote/ge.h"

namespace atelier {

class SelectionSet {
 public:
  // A deque, because programs empty a set by removing its first entity again and again.
  using List = std::deque<AcDbStub*>;

  bool add(AcDbStub* stub) {
    if (!stub || !members().insert(stub).second) return false;
    list_.push_back(stub);
    return true;
  }
  // Appends an entity that must not be in the set yet.
  void append(AcDbStub* stub) {
    if (members_) members_->insert(stub);
    list_.push_back(stub);
  }
  bool remove(AcDbStub* stub) {
    if (members().erase(stub) == 0) return false;
    list_.erase(std::find(list_.begin(), list_.end(), stub));
    return true;
  }
  // Removes many in one pass over the list.
  void removeAll(const std::vector<AcDbStub*>& stubs) {
    std::size_t removed = 0;
    for (AcDbStub* stub : stubs) removed += members().erase(stub);
    if (removed > 0) std::erase_if(list_, [this](AcDbStub* stub) { return !contains(stub); });
  }
  bool contains(const AcDbStub* stub) const {
    return !list_.empty() && members().contains(const_cast<AcDbStub*>(stub));
  }
  const List& list() const { return list_; }
  // The polygon of the last crossing selection among the answers, in plan; empty without one.
  std::vector<AcGePoint3d> crossed;
  // Bytes of memory that it takes, about.
  std::size_t weight() const { return list_.size() * sizeof(AcDbStub*); }

 private:
  using Members = std::unordered_set<AcDbStub*>;
  Members& members() const {
    if (!members_) members_.emplace(list_.begin(), list_.end());
    return *members_;
  }
  List list_;
  mutable std::optional<Members> members_;
};

}  // namespace atelier
