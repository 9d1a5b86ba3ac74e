// Finds a command by its name and runs it from the command line.
#include "atelier/commands/commands.h"

#include <sstream>
#include <utility>

#include "atelier/base/text.h"
#include "atelier/commands/command_run.h"
#include "atelier/document/document.h"
#include "atelier/variables/variable_table.h"

namespace atelier {
namespace {

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

constexpr auto kTables = {
    drawingCommands, shapeCommands,          dimensionCommands, divideCommands,         plineCommands,
    arcCommands,     blockCommands,          propertyCommands,  textCommands,           hatchCommands,
    editingCommands, curveCommands,          cornerCommands,    offsetCommands,         trimCommands,
    stretchCommands, explodeCommands,        polylineCommands,  insertCommands,         attributeCommands,
    leaderCommands,  layerCommands,          linetypeCommands,  recordCommands,         drawingFileCommands,
    fileCommands,    extractCommands,        plotCommands,      viewCommands,           undoCommands,
    inquiryCommands, menuCommands,           helpCommands,      modeCommands,           layerToolCommands,
    arrayCommands,   dimensionStyleCommands, orderCommands,     dimensionChainCommands, layerMergingCommands,
    groupCommands,   joinCommands,           textSizeCommands};

}  // namespace

std::vector<const CommandRow*> offeredCommands() {
  std::vector<const CommandRow*> rows;
  for (const auto table : kTables)
    for (const CommandRow& row : table()) rows.push_back(&row);
  return rows;
}

std::vector<std::string> commandNames() {
  std::vector<std::string> names;
  for (const CommandRow* row : offeredCommands()) {
    names.emplace_back(row->name);
    std::istringstream aliases{std::string(row->aliases)};
    for (std::string alias; aliases >> alias;) names.push_back(alias);
  }
  return names;
}

std::string commandName(std::string_view typed) {
  while (!typed.empty() && (typed.front() == '_' || typed.front() == '.' || typed.front() == '\''))
    typed.remove_prefix(1);
  return upperCase(typed);
}

const CommandRow* commandRow(std::string_view typed) {
  const std::string name = commandName(typed);
  for (const auto table : kTables)
    for (const CommandRow& row : table())
      if (isNamed(row, name)) return &row;
  return variableRow(name) && name != "SETVAR" ? commandRow("SETVAR") : nullptr;
}

const CommandRow* commandRow(const Document& document, std::string_view typed) {
  const CommandRow* row = commandRow(typed);
  const bool pointed = typed.starts_with('.') || typed.starts_with("_.");
  return row && !pointed && document.undefinedCommands.contains(std::string(row->name)) ? nullptr : row;
}

bool isTransparent(const std::string& name) {
  const CommandRow* row = commandRow(name);
  return row && row->transparent;
}

bool runBuiltinCommand(Document& document, const std::string& name) {
  const CommandRow* row = commandRow(document, name);
  if (!row) return false;
  try {
    CommandRun run(document, *row, name);
    run.advance(AnswerSupply());
  } catch (const Interrupted&) {
    document.endInterruption();
    document.print("\n*Annuler*\n");
  }
  return true;
}

}  // namespace atelier
