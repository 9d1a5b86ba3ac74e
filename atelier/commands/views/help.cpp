// HELP: lists the commands with a line on each, or explains one command or AutoLISP function.
// A command of a program is explained by the text that its function begins with; one without is listed by its name.
#include <algorithm>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/commands.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

std::string described(const CommandRow& row) {
  std::string aliases(row.aliases);
  for (std::size_t at = 0; (at = aliases.find(' ', at)) != aliases.npos; at += 2) aliases.replace(at, 1, ", ");
  return std::string(row.name) + (aliases.empty() ? "" : " (" + aliases + ")") + ": " + std::string(row.help);
}

// The text that a program's function begins with; empty for none.
std::string explanation(lisp::Value function) {
  if (!function.isUserSubr()) return {};
  const lisp::Value body = function.car().cdr();
  const bool begins = body.isPair() && body.cdr().isPair() && body.car().isString();
  return begins ? std::string(body.car().text()) : std::string();
}

void listAll(const Command& c) {
  std::vector<std::string> lines;
  for (const CommandRow* row : offeredCommands()) lines.push_back(described(*row));
  std::sort(lines.begin(), lines.end());
  for (const std::string& line : lines) c.print("\n" + line);
  std::vector<std::string> programs;
  for (const std::string& name : c.document.interpreter().boundNames())
    if (name.starts_with("C:")) programs.push_back(name.substr(2));
  std::sort(programs.begin(), programs.end());
  if (!programs.empty()) c.print("\nCommandes de programmes AutoLISP:");
  for (const std::string& name : programs) {
    const std::string text = explanation(c.document.interpreter().get("C:" + name));
    c.print("\n" + name + (text.empty() ? "" : ": " + text));
  }
  c.print("\n(aide) montre les fonctions AutoLISP, (aide 'nom) l'une d'elles.\n");
}

void explain(const Command& c, const std::string& name) {
  lisp::Interpreter& in = c.document.interpreter();
  const CommandRow* row = commandRow(name);
  const lisp::Primitive* function = in.primitive(name);
  const lisp::Value program = in.get("C:" + upperCase(name));
  if (row) c.print("\n" + described(*row));
  if (function) c.print("\n" + function->signature + ": " + function->help);
  if (!program.isNil()) {
    const std::string text = explanation(program);
    c.print("\n" + upperCase(name) + ": " + (text.empty() ? "commande d'un programme AutoLISP." : text));
  }
  if (!row && !function && program.isNil()) c.fail("Ni commande ni fonction AutoLISP ne s'appelle \"" + name + "\".");
  c.print("\n");
}

CommandTask help(Command& c) {
  const auto given = co_await c.line("\nCommande ou fonction <toutes les commandes>: ");
  const std::string name(trimmed(given.value));
  if (name.empty()) listAll(c);
  else explain(c, name);
}

constexpr CommandRow kTable[] = {
    {"HELP", "AIDE ?", help, "Explique une commande ou une fonction AutoLISP, ou nomme toutes les commandes.", true},
};

}  // namespace

std::span<const CommandRow> helpCommands() { return kTable; }

}  // namespace atelier
