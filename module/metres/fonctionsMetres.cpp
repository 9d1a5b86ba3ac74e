// C:CUBPL.
// Each step has a guard of its own: one that fails ends the command in silence.
#include "module/metres/fonctionsMetres.h"

#include "hote/aced.h"
#include "module/metres/classeProfondeur.h"
#include "module/metres/dialogueMetres.h"

namespace plv {

namespace {

template <class ETAPE>
bool reussie(ETAPE etape) {
  try {
    etape();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace

void C_CUBPL() {
  acedRetVoid();
  if (!reussie([] { chargerClasses(listeClasses()); })) return;
  CDlgMetresLineairesKavels dialogue;
  if (reussie([&] { runDialog(dialogue); })) reussie([] { sauverClasses(listeClasses()); });
}

}  // namespace plv
