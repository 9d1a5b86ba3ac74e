// The undo journal: the state of each object before its first change since a mark.
// One journal belongs to one database; it is off until a first mark is set.
#pragma once
#include <deque>
#include <memory>
#include <unordered_set>
#include <vector>

#include "atelier/database/record.h"
#include "atelier/database/stub.h"

namespace atelier {

class Journal {
 public:
  // A new step begins; changes from here on are undone together.
  void mark();
  // Takes the last step back, or does it again. False when there is none.
  bool undo();
  bool redo();
  void before(AcDbStub& stub);
  void clear();

 private:
  struct Image {
    AcDbStub* stub;
    bool erased;
    Record record;
  };
  using Step = std::vector<Image>;
  Step swap(Step& step);
  std::deque<Step> done_;
  std::vector<Step> undone_;
  std::unordered_set<const AcDbStub*> seen_;  // in the running step
  bool on_ = false;
};

// Called by everything that changes an object, before it does.
void noteChange(AcDbStub& stub);

}  // namespace atelier
