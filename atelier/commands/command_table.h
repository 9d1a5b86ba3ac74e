// The host's commands: a row for each, with its French names and one line of help.
// To add a command: a coroutine in one of the files by subject, and a row in that file's table.
#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/commands/command_task.h"

namespace atelier {

class Command;

struct CommandRow {
  std::string_view name;     // English
  std::string_view aliases;  // other names, French ones included, separated by blanks
  CommandTask (*function)(Command&);
  std::string_view help;
  bool transparent = false;  // may run while a prompt of another command waits, as 'ZOOM
};

std::span<const CommandRow> drawingCommands();
std::span<const CommandRow> shapeCommands();
std::span<const CommandRow> divideCommands();
std::span<const CommandRow> dimensionCommands();
std::span<const CommandRow> dimensionChainCommands();
std::span<const CommandRow> leaderCommands();
std::span<const CommandRow> attributeCommands();
std::span<const CommandRow> plineCommands();
std::span<const CommandRow> arcCommands();
std::span<const CommandRow> blockCommands();
std::span<const CommandRow> propertyCommands();
std::span<const CommandRow> textCommands();
std::span<const CommandRow> hatchCommands();
std::span<const CommandRow> editingCommands();
std::span<const CommandRow> curveCommands();
std::span<const CommandRow> cornerCommands();
std::span<const CommandRow> offsetCommands();
std::span<const CommandRow> trimCommands();
std::span<const CommandRow> stretchCommands();
std::span<const CommandRow> explodeCommands();
std::span<const CommandRow> polylineCommands();
std::span<const CommandRow> insertCommands();
std::span<const CommandRow> layerCommands();
std::span<const CommandRow> linetypeCommands();
std::span<const CommandRow> recordCommands();
std::span<const CommandRow> drawingFileCommands();
std::span<const CommandRow> fileCommands();
std::span<const CommandRow> extractCommands();
std::span<const CommandRow> plotCommands();
std::span<const CommandRow> viewCommands();
std::span<const CommandRow> undoCommands();
std::span<const CommandRow> menuCommands();
std::span<const CommandRow> modeCommands();
std::span<const CommandRow> layerToolCommands();
std::span<const CommandRow> layerMergingCommands();
std::span<const CommandRow> groupCommands();
std::span<const CommandRow> joinCommands();
std::span<const CommandRow> textSizeCommands();
std::span<const CommandRow> arrayCommands();
std::span<const CommandRow> dimensionStyleCommands();
std::span<const CommandRow> orderCommands();
std::span<const CommandRow> helpCommands();
std::span<const CommandRow> inquiryCommands();

// The command with the typed name; leading _ . and ' are ignored. French and English names are all different. The name
// of a system variable gives the row of SETVAR.
const CommandRow* commandRow(std::string_view typed);
// The same, for one that UNDEFINE has not taken away from the document, or with a leading point.
const CommandRow* commandRow(const Document& document, std::string_view typed);
// All that are offered here, in no order.
std::vector<const CommandRow*> offeredCommands();
// A name as typed, without the marks, in upper case.
std::string commandName(std::string_view typed);

}  // namespace atelier
