// QUIT SCRIPT SETVAR DELAY: the session.
// The lines of a script are run when the command has ended, as if they were typed then.
#include <chrono>
#include <thread>

#include "atelier/base/interruption.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/commands.h"
#include "atelier/document/document.h"
#include "atelier/document/files/script_file.h"
#include "atelier/variables/variable_table.h"

namespace atelier {
namespace {

CommandTask quit(Command& c) {
  if (c.document.imp().modified) {
    const auto discard = co_await c.keyword("\nAbandonner les modifications? [Oui/Non] <N>: ", "Oui Non _Yes No");
    if (!discard.is("Yes")) co_return;
  }
  requestQuit();
}

CommandTask script(Command& c) {
  const auto given = co_await c.line("\nFichier script: ");
  const std::string name(trimmed(given.value));
  auto found = c.document.interpreter().search().find(name);
  if (!found) found = c.document.interpreter().search().find(name + ".scr");
  if (!found) c.fail("Script introuvable: " + name);
  c.document.scripts.push_back({readScript(*found), name});
}

CommandTask setvar(Command& c) {
  std::string name = commandName(c.typed);
  if (!variableRow(name)) {
    const auto given = co_await c.word("\nNom de la variable: ");
    name = upperCase(trimmed(given.value));
  }
  SystemVariables& variables = c.document.variables();
  const auto before = variables.value(name);
  if (!before) c.fail("Variable inconnue: " + name);
  const std::string prompt = "\nNouvelle valeur de " + name + ": ";
  const auto text = co_await c.line(prompt);
  if (text.value.empty()) co_return;
  SystemVariables::Value value = text.value;
  if (before->index() == 0) {
    const auto number = parseInteger(text.value);
    if (number) value = static_cast<int>(*number);
  } else if (before->index() == 1) {
    const auto number = parseReal(text.value);
    if (number && std::isfinite(*number)) value = *number;
  } else if (before->index() == 3) {
    const auto point = parsePoint(text.value, {});
    if (point) value = SystemVariables::Point{*point, std::get<SystemVariables::Point>(*before).flat};
  }
  if (!variables.set(name, value)) c.fail("Valeur refusée pour " + name + ": " + text.value);
}

CommandTask delay(Command& c) {
  constexpr int kLongest = 32767, kSlice = 50;
  const auto given = co_await c.integer("\nDurée en millisecondes: ");
  for (int left = std::clamp(given.value, 0, kLongest); left > 0; left -= kSlice) {
    checkInterruption();
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(left, kSlice)));
  }
}

std::string rowName(const Command& c, const std::string& typed) {
  const CommandRow* row = commandRow(typed);
  if (!row) c.fail("Commande inconnue: " + typed);
  return std::string(row->name);
}

CommandTask undefine(Command& c) {
  const auto name = co_await c.word("\nNom de la commande: ");
  if (!name.value.empty()) c.document.undefinedCommands.insert(rowName(c, name.value));
}

CommandTask redefine(Command& c) {
  const auto name = co_await c.word("\nNom de la commande: ");
  if (!name.value.empty()) c.document.undefinedCommands.erase(rowName(c, name.value));
}

constexpr CommandRow kTable[] = {
    {"QUIT", "EXIT QUITTER", quit, "Quitte le programme."},
    {"SCRIPT", "SCR", script, "Exécute les lignes d'un fichier."},
    {"SETVAR", "SET MODIFVAR", setvar, "Règle une variable système; son nom est aussi une commande.", true},
    {"UNDEFINE", "ANNULDEF", undefine, "Ôte une commande: son nom avec un point la trouve encore."},
    {"REDEFINE", "REDEFINIR", redefine, "Rétablit une commande ôtée."},
    {"DELAY", "DELAI", delay, "Attend."},
};

}  // namespace

std::span<const CommandRow> fileCommands() { return kTable; }

}  // namespace atelier
