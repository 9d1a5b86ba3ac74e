// A command that runs: from question to question, as far as there are answers.
// Inner header of the room, and of the tests.
#pragma once
#include <memory>
#include <span>

#include "atelier/editor/command_prompts.h"
#include "atelier/editor/command_table.h"
#include "atelier/lisp/value.h"

namespace atelier {

// Where a run's answers come from, as far as it must know: a user's source never runs out, a call's values
// do.
class AnswerSupply {
 public:
  virtual ~AnswerSupply() = default;
  virtual bool hasMore() const { return true; }
  virtual bool ranOut() const { return false; }  // a question was put to it when it had no more
};

class CommandRun {
 public:
  CommandRun(Document& document, const CommandRow& row, std::string typed)
      : command_(document, std::move(typed)), row_(row), task_(row.function(command_)) {}
  enum class State { ended, cancelled, waiting };
  // Runs on with the prompter's source until the command ends, or waits because the supply ran out.
  State advance(const AnswerSupply& supply);
  const CommandRow& row() const { return row_; }

 private:
  Command command_;
  const CommandRow& row_;
  CommandTask task_;
};

// Ends the command that waits for answers: the user's source gives the rest, or it is cancelled.
void finishCommand(Document& document);
void cancelCommand(Document& document);

// The view that a drawing opens with.
struct View;
View activeView(AcDbImpDatabase& database);

}  // namespace atelier
