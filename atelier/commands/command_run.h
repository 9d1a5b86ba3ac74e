// A running command: it goes from question to question as long as there are answers.
// Inner header of the room, and of the tests.
#pragma once
#include <memory>
#include <span>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/services.h"
#include "atelier/lisp/values/value.h"

namespace atelier {

// Whether answers have run out: a user's source never does, the values of a call do.
class AnswerSupply {
 public:
  virtual ~AnswerSupply() = default;
  virtual bool hasMore() const { return true; }
  virtual bool ranOut() const { return false; }  // it was asked when it had no more answers
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
