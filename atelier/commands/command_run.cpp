// Driving a command.
// A cancel that came for want of answers leaves the command waiting; any other ends it.
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

// Nothing else waits in a document than what this room's runs are.
std::unique_ptr<CommandRun> takeWaiting(Document& document) {
  return std::unique_ptr<CommandRun>(static_cast<CommandRun*>(document.waitingCommand().release()));
}

}  // namespace atelier
