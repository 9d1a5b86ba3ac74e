// Finding a command by its name and running it from the command line.
// What the list of known commands names without a function says that it isn't there.
#include "atelier/editor/commands.h"

#include <utility>

#include "atelier/database/text.h"
#include "atelier/editor/command_run.h"
#include "atelier/editor/document.h"

namespace atelier {
namespace {

bool quitting = false;

constexpr CommandRow kElsewhere[] = {
    {"PEDIT", "PE", nullptr, "Modifie une polyligne."},
    {"SPLINE", "", nullptr, "Dessine une courbe."},
    {"BREAK", "COUPURE", nullptr, "Coupe un objet."},
    {"FILLET", "RACCORD", nullptr, "Raccorde deux objets."},
    {"OFFSET", "DECALER", nullptr, "Décale un objet."},
    {"TRIM", "AJUSTER", nullptr, "Ajuste des objets."},
    {"EXTEND", "PROLONGE", nullptr, "Prolonge des objets."},
    {"HATCH", "-HATCH BHATCH -BHATCH HACHURES", nullptr, "Hachure un contour."},
    {"OPEN", "OUVRIR", nullptr, "Ouvre un dessin: il se donne au lancement du programme."},
    {"NEW", "NOUVEAU QNEW", nullptr, "Commence un dessin: lancer le programme sans fichier."},
    {"AUDIT", "CONTROLE", nullptr, "Contrôle le dessin: option --audit du programme."},
    {"PLOT", "-PLOT TRACEUR", nullptr, "Trace le dessin: option --plot du programme."},
};

bool isNamed(const CommandRow& row, std::string_view name) {
  if (row.name == name) return true;
  std::string_view rest = row.aliases;
  while (!rest.empty()) {
    const std::size_t blank = rest.find(' ');
    if (rest.substr(0, blank) == name) return true;
    rest = blank == rest.npos ? std::string_view() : rest.substr(blank + 1);
  }
  return false;
}

}  // namespace

const CommandRow* commandRow(std::string_view typed) {
  while (!typed.empty() && (typed.front() == '_' || typed.front() == '.' || typed.front() == '\''))
    typed.remove_prefix(1);
  const std::string name = upperCase(typed);
  for (const auto table : {drawingCommands(), textCommands(), editingCommands(), insertCommands(),
                           layerCommands(), recordCommands(), fileCommands(), viewCommands(), undoCommands(),
                           std::span<const CommandRow>(kElsewhere)})
    for (const CommandRow& row : table)
      if (isNamed(row, name)) return &row;
  return nullptr;
}

bool runBuiltinCommand(Document& document, const std::string& name) {
  const CommandRow* row = commandRow(name);
  if (!row) return false;
  if (!row->function) {
    document.fail("Commande " + std::string(row->name) + " non disponible ici. " + std::string(row->help));
    return true;
  }
  try {
    CommandRun run(document, *row);
    run.advance(AnswerSupply());
  } catch (const Interrupted&) {
    document.interpreter().clearInterrupt();
    document.print("\n*Annuler*\n");
  }
  return true;
}

void requestQuit() {
  quitting = true;
}
bool quitRequested() {
  return std::exchange(quitting, false);
}

}  // namespace atelier
