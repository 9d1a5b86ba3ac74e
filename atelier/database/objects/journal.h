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
  // Takes up to so many steps back; how many there were. What one call took back, one redo() does again.
  int undo(int count = 1);
  bool redo();
  // A bookmark, and the way back to the last one, which is used up; false when there is none.
  void setBookmark();
  bool undoToBookmark();
  void before(AcDbStub& stub);
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
    bool bookmarked = false;  // the bookmark stands before it
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

// Is told of each change to an object of a database, before it is made; of a new object before it has its place
// among its owner's children. What it keeps about objects it therefore works out later, when it is asked.
class ChangeListener {
 public:
  virtual ~ChangeListener() = default;
  virtual void changes(AcDbStub& stub) = 0;
};

// Called by everything that changes an object, before it does.
void noteChange(AcDbStub& stub);

}  // namespace atelier
