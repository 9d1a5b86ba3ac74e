// UNDO U REDO: undo and redo steps of the journal.
// A step is the changes of one line of the command line, or of one command of a program; Begin and End join several.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

constexpr int kAll = 1 << 20;

void back(const Command& c, int steps) {
  c.document.undoGroup = false;
  if (c.document.imp().journal.undo(steps) < steps) c.print("\nTout a été annulé.");
}

CommandTask u(Command& c) {
  back(c, 1);
  co_return;
}

CommandTask redo(Command& c) {
  if (!c.document.imp().journal.redo()) c.print("\nRien à rétablir.");
  co_return;
}

CommandTask mredo(Command& c) {
  const auto count = co_await c.integerOrEnter("\nNombre d'actions ou [Tout/Dernier] <1>: ", "Tout Dernier _All Last");
  int left = count.is("All") ? kAll : count.valueOr(1);
  while (left > 0 && c.document.imp().journal.redo()) --left;
}

CommandTask undo(Command& c) {
  const auto option =
      co_await c.integerOrEnter("\nNombre d'étapes ou [AUto/COntrôle/DÉbut/Fin/Marque/REtour] <1>: ",
                                "DÉbut Fin COntrôle AUto REtour Marque Groupe _BEgin End Control Auto Back Mark Group");
  if (option.is("BEgin") || option.is("Group")) {
    c.document.imp().journal.mark();
    c.document.undoGroup = true;
  } else if (option.is("End")) {
    c.document.undoGroup = false;
    c.document.imp().journal.mark();
  } else if (option.is("Control")) {
    // The answer is read, so that programs can give it, but has no effect: undo always works on everything.
    co_await c.keyword("\nOption [Tout/Non/Une/COmbiner/CAlque] <Tout>: ",
                       "Tout Non Une COmbiner CAlque _All None One Combine Layer");
  } else if (option.is("Auto")) {
    co_await c.keyword("\nOption [Active/Inactive]: ", "Active Inactive _ON OFF");
  } else if (option.is("Mark")) {
    c.document.undoGroup = false;
    c.document.imp().journal.setBookmark();
  } else if (option.is("Back")) {
    c.document.undoGroup = false;
    if (c.document.imp().journal.undoToBookmark()) co_return;
    const auto all = co_await c.keyword("\nCeci annulera tout. Continuer? [Oui/Non] <O>: ", "Oui Non _Yes No");
    if (!all.is("No")) c.document.imp().journal.undo(kAll);
  } else {
    back(c, option.valueOr(1));
  }
}

constexpr CommandRow kTable[] = {
    {"U", "", u, "Annule la dernière étape."},
    {"UNDO", "ANNULER", undo, "Annule des étapes, ou les groupe."},
    {"REDO", "RETABLIR", redo, "Rétablit ce que la dernière annulation a défait."},
    {"MREDO", "MRETABLIR", mredo, "Rétablit plusieurs annulations."},
};

}  // namespace

std::span<const CommandRow> undoCommands() { return kTable; }

}  // namespace atelier
