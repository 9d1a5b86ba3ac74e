// Renames and purges records of symbol tables.
// Inner header of the room.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/commands/command_prompts.h"

namespace atelier {

// Gives a record another name, also where the drawing refers to it. Throws Error when the old name is unknown, when the
// new one is taken or not valid, or for a record that must keep its name (layer 0, style Standard ...).
void renameNamed(const Command& command, std::string_view table, const std::string& from, const std::string& to);

// Erases the table's records that nothing refers to and whose names match the pattern; gives their names.
std::vector<std::string> purgeTable(const Command& command, std::string_view table, std::string_view pattern);

}  // namespace atelier
