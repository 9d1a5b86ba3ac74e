// The undo journal: the state of each object before its first change since a mark.
// One journal belongs to one database; it is off until a first mark is set.
#pragma once
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "atelier/database/objects/stub.h"
#include "atelier/database/records/record.h"

namespace atelier {

class Journal {
 public:
  // A new step begins; changes from here on are undone together.
  void mark();
  // Undoes up to `count` steps and gives the number undone. One redo() restores all that one call has undone.
  int undo(int count = 1);
  bool redo();
  // Sets a bookmark; undoes to the last one, which is then removed (false when there is none).
  void setBookmark();
  bool undoToBookmark();
  void before(AcDbStub& stub);
  // What the running step has changed, made or erased so far.
  std::vector<AcDbStub*> changed() const;
  bool hasChanged() const;
  // Undoes the running step for good: neither undo() nor redo() knows of it.
  void abandon();
  void clear();

 private:
  struct Image {
    AcDbStub* stub;
    bool erased;
    Record record;
  };
  struct Step {
    std::vector<Image> images;
    std::size_t weight() const;
    bool bookmarked = false;  // there is a bookmark before this step
  };
  void swap(Step& step);
  void takeBack(std::vector<Step>& taken);
  int undoWhile(const std::function<bool(int taken)>& wanted);
  void forgetOldest();
  void endStep();
  std::deque<Step> done_;
  std::vector<std::vector<Step>> undone_;  // by the call that took them back
  std::size_t weight_ = 0;                 // groups of all images of the steps that were done
  bool on_ = false;
};

// Is told of each change to an object of a database before it is made, and of a new object before it is among its
// owner's children. It therefore can't look at the new state yet: it must do that later, when it is asked.
class ChangeListener {
 public:
  virtual ~ChangeListener() = default;
  virtual void changes(AcDbStub& stub) = 0;
};

// Must be called before any change to an object.
void noteChange(AcDbStub& stub);

}  // namespace atelier
