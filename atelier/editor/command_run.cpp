// Driving a command.
// A cancel that came for want of answers leaves the command waiting; any other ends it.
#include "atelier/editor/command_run.h"

#include "atelier/editor/document.h"

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

void finishCommand(Document& document) {
  const std::unique_ptr<CommandRun> run = std::move(document.waitingCommand());
  if (!run) return;
  try {
    run->advance(AnswerSupply());
  } catch (const Interrupted&) {
    document.endInterruption();
  } catch (const Error& error) {
    document.fail(error.what());
  }
}

void cancelCommand(Document& document) { document.waitingCommand().reset(); }

View activeView(AcDbImpDatabase& database) {
  View view;
  AcDbStub* port = database.tableRecord("VPORT", "*Active");
  if (!port) return view;
  const Record& record = AcDbImpObject::of(&database.object(*port)).record;
  view.centre = record.point(point2Field("AcDbViewportTableRecord", 12));
  const double height = record.real(realField("AcDbViewportTableRecord", 40));
  if (height > 0) view.height = height;
  return view;
}

}  // namespace atelier
