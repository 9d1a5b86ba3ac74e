// Undo by images of records: taking a step back exchanges each image with the present state.
// What the images hold is bounded, so that the journal's cost is; the oldest steps go first, the running one never does.
#include "atelier/database/journal.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "atelier/database/imp_database.h"

namespace atelier {
namespace {
constexpr std::size_t kMostGroups = 8'000'000, kMostSteps = 10'000;

std::size_t weightOf(const Record& record) { return 1 + record.groups.size(); }
}  // namespace

std::size_t Journal::Step::weight() const {
  return std::accumulate(images.begin(), images.end(), std::size_t{0},
                         [](std::size_t sum, const Image& image) { return sum + weightOf(image.record); });
}

void Journal::mark() {
  on_ = true;
  seen_.clear();
  if (!done_.empty() && done_.back().images.empty()) return;
  done_.emplace_back();
  while (done_.size() > 1 && (weight_ > kMostGroups || done_.size() > kMostSteps)) forgetOldest();
}

void Journal::forgetOldest() {
  weight_ -= done_.front().weight();
  done_.pop_front();
}

void Journal::setBookmark() {
  mark();
  done_.back().bookmarked = true;
}

void Journal::before(AcDbStub& stub) {
  if (!on_ || !seen_.insert(&stub).second) return;
  if (done_.empty()) done_.emplace_back();
  undone_.clear();
  // An object that is only just being made has no earlier state: undoing it is erasing it. One that nobody opened yet
  // has one, in its file.
  const bool fresh = !stub.object && stub.is(AcDbStub::kNew);
  Image image{&stub, fresh || stub.is(AcDbStub::kErased), {}};
  if (!fresh) image.record = AcDbImpObject::of(&stub.database->object(stub)).settled();
  weight_ += weightOf(image.record);
  done_.back().images.push_back(std::move(image));
}

void Journal::swap(Step& step) {
  std::vector<Image> opposite;
  for (auto it = step.images.rbegin(); it != step.images.rend(); ++it) {
    AcDbStub& stub = *it->stub;
    AcDbImpObject& imp = AcDbImpObject::of(&stub.database->object(stub));
    opposite.push_back({&stub, stub.is(AcDbStub::kErased), imp.settled()});
    stub.database->tellListeners(stub);
    stub.set(AcDbStub::kErased, it->erased);
    stub.set(AcDbStub::kChanged);
    if (!it->record.groups.empty() && it->record.type() != imp.record.type())
      stub.database->replaceObject(stub, std::move(it->record));  // another class had taken its place
    else if (!it->record.groups.empty()) imp.record = std::move(it->record);
    AcDbImpObject::of(stub.object).forgetDecoded();
    stub.database->modified = true;
    stub.database->forgetTableIndex();
  }
  step.images = std::move(opposite);
}

// The last step, which is not kept when it changed nothing.
void Journal::takeBack(std::vector<Step>& taken) {
  Step step = std::move(done_.back());
  done_.pop_back();
  if (step.images.empty()) return;
  weight_ -= step.weight();
  swap(step);
  taken.push_back(std::move(step));
}

int Journal::undo(int count) {
  std::vector<Step> taken;
  while (!done_.empty() && static_cast<int>(taken.size()) < count) takeBack(taken);
  const int steps = static_cast<int>(taken.size());
  if (steps > 0) undone_.push_back(std::move(taken));
  seen_.clear();
  return steps;
}

bool Journal::undoToBookmark() {
  if (std::none_of(done_.begin(), done_.end(), [](const Step& step) { return step.bookmarked; })) return false;
  std::vector<Step> taken;
  for (bool reached = false; !reached;) {
    reached = std::exchange(done_.back().bookmarked, false);
    takeBack(taken);
  }
  if (!taken.empty()) undone_.push_back(std::move(taken));
  seen_.clear();
  return true;
}

bool Journal::redo() {
  if (undone_.empty()) return false;
  std::vector<Step> steps = std::move(undone_.back());
  undone_.pop_back();
  for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
    swap(*step);
    weight_ += step->weight();
    done_.push_back(std::move(*step));
  }
  seen_.clear();
  return true;
}

void Journal::clear() {
  done_.clear();
  undone_.clear();
  seen_.clear();
  weight_ = 0;
}

void noteChange(AcDbStub& stub) {
  stub.database->journal.before(stub);
  stub.database->tellListeners(stub);
}

}  // namespace atelier
