// A selection set: entities in the order in which they were selected, each once.
#pragma once
#include <memory>
#include <unordered_set>
#include <vector>

#include "atelier/database/stub.h"

namespace atelier {

class SelectionSet {
 public:
  bool add(AcDbStub* stub) {
    if (!stub || !members_.insert(stub).second) return false;
    list_.push_back(stub);
    return true;
  }
  bool remove(AcDbStub* stub) {
    if (members_.erase(stub) == 0) return false;
    std::erase(list_, stub);
    return true;
  }
  // Many at once, in one pass over the list.
  void removeAll(const std::vector<AcDbStub*>& stubs) {
    std::size_t removed = 0;
    for (AcDbStub* stub : stubs) removed += members_.erase(stub);
    if (removed > 0) std::erase_if(list_, [this](AcDbStub* stub) { return !contains(stub); });
  }
  bool contains(const AcDbStub* stub) const { return members_.contains(const_cast<AcDbStub*>(stub)); }
  const std::vector<AcDbStub*>& list() const { return list_; }

 private:
  std::vector<AcDbStub*> list_;
  std::unordered_set<AcDbStub*> members_;
};

}  // namespace atelier
