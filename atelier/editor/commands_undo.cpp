// UNDO U REDO: taking back steps of the journal.
// A step is what one line of the command line, or one command of a program, changed; Begin and End join many.
#include "atelier/editor/command_prompts.h"
#include "atelier/editor/command_table.h"
#include "atelier/editor/document.h"

namespace atelier {
namespace {

void back(const Command& c, int steps) {
  for (; steps > 0; --steps)
    if (!c.document.imp().journal.undo()) {
      c.print("\nTout a été annulé.");
      return;
    }
}

CommandTask u(Command& c) {
  back(c, 1);
  co_return;
}

CommandTask redo(Command& c) {
  if (!c.document.imp().journal.redo()) c.print("\nRien à rétablir.");
  co_return;
}

CommandTask undo(Command& c) {
  const auto option =
      co_await c.integer("\nNombre d'étapes ou [DÉbut/Fin/Contrôle] <1>: ",
                         "DÉbut Fin COntrôle AUto REtour Marque _BEgin End Control Auto Back Mark");
  if (option.is("BEgin")) {
    c.document.imp().journal.mark();
    c.document.undoGroup = true;
  } else if (option.is("End")) {
    c.document.undoGroup = false;
    c.document.imp().journal.mark();
  } else if (option.is("Control")) {
    // Undoing is always whole here; the answer is taken so that programs go on.
    co_await c.keyword("\nOption [Tout/Non/Une/COmbiner/CAlque] <Tout>: ",
                       "Tout Non Une COmbiner CAlque _All None One Combine Layer");
  } else if (option.is("Auto")) {
    co_await c.keyword("\nOption [Active/Inactive]: ", "Active Inactive _ON OFF");
  } else if (option.is("Mark") || option.is("Back")) {
    c.fail("ANNULER: les options Marque et Retour ne sont pas offertes; Début et Fin groupent des étapes.");
  } else {
    back(c, option.valueOr(1));
  }
}

constexpr CommandRow kTable[] = {
    {"U", "", u, "Annule la dernière étape."},
    {"UNDO", "ANNULER", undo, "Annule des étapes, ou les groupe."},
    {"REDO", "MREDO RETABLIR", redo, "Rétablit la dernière étape annulée."},
};

}  // namespace

std::span<const CommandRow> undoCommands() {
  return kTable;
}

}  // namespace atelier
