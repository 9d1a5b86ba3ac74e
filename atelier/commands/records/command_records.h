// Records of symbol tables, renamed and purged with what refers to them by name.
// Inner header of the room.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/commands/command_prompts.h"

namespace atelier {

// Gives a record another name, and everything in the drawing that names it. Throws Error when the old
// name is unknown, the new one taken or no symbol's name, or the record one that keeps its name (layer 0,
// style Standard ...).
void renameRecord(const Command& command, std::string_view table, const std::string& from, const std::string& to);

// Erases the records of the table that nothing refers to and whose name fits the pattern; their names.
std::vector<std::string> purgeTable(const Command& command, std::string_view table, std::string_view pattern);

}  // namespace atelier
