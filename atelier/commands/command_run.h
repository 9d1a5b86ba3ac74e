// A command that runs: from question to question, as far as there are answers.
// Inner header of the room, and of the tests.
#pragma once
#include <memory>
#include <span>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/attachment.h"
#include "atelier/lisp/values/value.h"

namespace atelier {

// Where a run's answers come from, as far as it must know: a user's source never runs out, a call's values
// do.
class AnswerSupply {
 public:
  virtual ~AnswerSupply() = default;
  virtual bool hasMore() const { return true; }
  virtual bool ranOut() const { return false; }  // a question was put to it when it had no more
};

class CommandRun final : public WaitingCommand {
 public:
  CommandRun(Document& document, const CommandRow& row, std::string typed)
      : command_(document, std::move(typed)), row_(row), task_(row.function(command_)) {}
  enum class State { ended, cancelled, waiting };
  // Runs on with the prompter's source until the command ends, or waits because the supply ran out.
  State advance(const AnswerSupply& supply);
  std::string_view name() const override { return row_.name; }
  void finish() override { advance(AnswerSupply()); }

 private:
  Command command_;
  const CommandRow& row_;
  CommandTask task_;
};

// Takes the command that waits in the document; null when none does.
std::unique_ptr<CommandRun> takeWaiting(Document& document);

}  // namespace atelier
