// Undo by images of records: taking a step back exchanges each image with the present state.
// The number of steps kept is bounded, so that the journal's cost is.
#include "atelier/database/journal.h"

#include "atelier/database/imp_database.h"

namespace atelier {
namespace {
constexpr std::size_t kMostSteps = 100;
}

void Journal::mark() {
  on_ = true;
  seen_.clear();
  if (!done_.empty() && done_.back().empty()) return;
  done_.emplace_back();
  if (done_.size() > kMostSteps) done_.pop_front();
}

void Journal::before(AcDbStub& stub) {
  if (!on_ || !seen_.insert(&stub).second) return;
  if (done_.empty()) done_.emplace_back();
  undone_.clear();
  // An object that is only just being made has no earlier state: undoing it is erasing it.
  const bool fresh = !stub.object;
  Image image{&stub, fresh || stub.is(AcDbStub::kErased), {}};
  if (!fresh) image.record = AcDbImpObject::of(stub.object).settled();
  done_.back().push_back(std::move(image));
}

Journal::Step Journal::swap(Step& step) {
  Step opposite;
  for (auto it = step.rbegin(); it != step.rend(); ++it) {
    AcDbStub& stub = *it->stub;
    AcDbImpObject& imp = AcDbImpObject::of(&stub.database->object(stub));
    opposite.push_back({&stub, stub.is(AcDbStub::kErased), imp.settled()});
    stub.set(AcDbStub::kErased, it->erased);
    stub.set(AcDbStub::kChanged);
    if (!it->record.groups.empty()) imp.record = std::move(it->record);
    imp.forgetDecoded();
    stub.database->modified = true;
    stub.database->forgetTableIndex();
  }
  return opposite;
}

bool Journal::undo() {
  while (!done_.empty() && done_.back().empty()) done_.pop_back();
  if (done_.empty()) return false;
  Step step = std::move(done_.back());
  done_.pop_back();
  undone_.push_back(swap(step));
  seen_.clear();
  return true;
}

bool Journal::redo() {
  if (undone_.empty()) return false;
  Step step = std::move(undone_.back());
  undone_.pop_back();
  done_.push_back(swap(step));
  seen_.clear();
  return true;
}

void Journal::clear() {
  done_.clear();
  undone_.clear();
  seen_.clear();
}

void noteChange(AcDbStub& stub) { stub.database->journal.before(stub); }

}  // namespace atelier
