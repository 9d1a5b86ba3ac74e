// Undo with images of records: undoing a step exchanges each image with the present state.
// The size of all images is bounded: the oldest steps are dropped first, the running one never is.
#include "atelier/database/objects/journal.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/imp_database.h"

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
  endStep();
  if (!done_.empty() && done_.back().images.empty()) return;
  done_.emplace_back();
  while (done_.size() > 1 && (weight_ > kMostGroups || done_.size() > kMostSteps)) forgetOldest();
}

void Journal::endStep() {
  if (done_.empty()) return;
  for (const Image& image : done_.back().images) image.stub->set(AcDbStub::kNoted, false);
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
  if (!on_ || stub.is(AcDbStub::kNoted)) return;
  if (done_.empty()) done_.emplace_back();
  undone_.clear();
  // A new object has no earlier state: it is undone by erasing it. An object that was never opened has its earlier state
  // in the file.
  const bool fresh = !stub.object && stub.is(AcDbStub::kNew);
  Image image{&stub, fresh || stub.is(AcDbStub::kErased), {}};
  if (!fresh) image.record = AcDbImpObject::of(&stub.database->object(stub)).settled();
  weight_ += weightOf(image.record);
  stub.set(AcDbStub::kNoted);
  done_.back().images.push_back(std::move(image));
}

std::vector<AcDbStub*> Journal::changed() const {
  std::vector<AcDbStub*> stubs;
  if (!done_.empty())
    for (const Image& image : done_.back().images)
      if (image.stub->is(AcDbStub::kNoted)) stubs.push_back(image.stub);
  return stubs;
}

bool Journal::hasChanged() const {
  return !done_.empty() && !done_.back().images.empty() && done_.back().images.back().stub->is(AcDbStub::kNoted);
}

void Journal::abandon() {
  if (!hasChanged()) return;
  endStep();
  Step& step = done_.back();
  weight_ -= step.weight();
  swap(step);
  step.images.clear();
}

void Journal::swap(Step& step) {
  std::reverse(step.images.begin(), step.images.end());
  for (Image& image : step.images) {
    AcDbStub& stub = *image.stub;
    AcDbImpObject& imp = AcDbImpObject::of(&stub.database->object(stub));
    imp.settled();
    stub.database->tellListeners(stub);
    const bool erased = stub.is(AcDbStub::kErased);
    stub.set(AcDbStub::kErased, std::exchange(image.erased, erased));
    stub.set(AcDbStub::kChanged);
    // The image of a newly made object has no groups and doesn't change the record.
    if (!image.record.groups.empty()) {
      std::swap(image.record, imp.record);
      if (image.record.type() != imp.record.type())
        stub.database->replaceObject(stub, std::move(imp.record));  // the object there was of another class
    }
    AcDbImpObject::of(stub.object).forgetDecoded();
    stub.database->modified = true;
    stub.database->forgetTableIndex();
  }
}

// Undoes the last step. A step that changed nothing is dropped.
void Journal::takeBack(std::vector<Step>& taken) {
  Step step = std::move(done_.back());
  done_.pop_back();
  if (step.images.empty()) return;
  weight_ -= step.weight();
  swap(step);
  taken.push_back(std::move(step));
}

// Steps are undone as a whole: an interruption stops between two steps, and redo() restores those that were undone.
int Journal::undoWhile(const std::function<bool(int taken)>& wanted) {
  endStep();
  std::vector<Step> taken;
  const auto keep = [&] {
    const int steps = static_cast<int>(taken.size());
    if (steps > 0) undone_.push_back(std::move(taken));
    return steps;
  };
  try {
    while (!done_.empty()) {
      checkInterruption();
      if (!wanted(static_cast<int>(taken.size()))) break;
      takeBack(taken);
    }
  } catch (const Interrupted&) {
    keep();
    throw;
  }
  return keep();
}

int Journal::undo(int count) {
  return undoWhile([count](int taken) { return taken < count; });
}

bool Journal::undoToBookmark() {
  if (std::none_of(done_.begin(), done_.end(), [](const Step& step) { return step.bookmarked; })) return false;
  bool reached = false;
  undoWhile([&](int) {
    if (reached) return false;
    reached = std::exchange(done_.back().bookmarked, false);
    return true;
  });
  return true;
}

bool Journal::redo() {
  if (undone_.empty()) return false;
  endStep();
  std::vector<Step> steps = std::move(undone_.back());
  undone_.pop_back();
  for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
    swap(*step);
    weight_ += step->weight();
    done_.push_back(std::move(*step));
  }
  return true;
}

void Journal::clear() {
  endStep();
  done_.clear();
  undone_.clear();
  weight_ = 0;
}

void noteChange(AcDbStub& stub) {
  stub.database->journal.before(stub);
  stub.database->tellListeners(stub);
}

}  // namespace atelier
