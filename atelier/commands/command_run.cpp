// Runs a command from question to question.
// When the answers have run out the command waits; any other cancel ends it.
#include "atelier/commands/command_run.h"

#include "atelier/document/document.h"

namespace atelier {

CommandRun::State CommandRun::advance(const AnswerSupply& supply) {
  if (!task_.done() && !task_.question()) task_.resume();
  while (!task_.done()) {
    if (!supply.hasMore()) return State::waiting;
    if (task_.question()->ask(command_.document.prompter()) == Answer::cancel) {
      if (supply.ranOut()) return State::waiting;
      command_.print("\n*Annuler*\n");
      return State::cancelled;
    }
    task_.resume();
  }
  return State::ended;
}

// The document's waiting command is always one of this room.
std::unique_ptr<CommandRun> takeWaiting(Document& document) {
  return std::unique_ptr<CommandRun>(static_cast<CommandRun*>(document.waitingCommand().release()));
}

}  // namespace atelier
