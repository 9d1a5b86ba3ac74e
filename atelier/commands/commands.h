// The commands of the host itself, by name; applications' commands are AutoLISP functions C:NAME.
#pragma once
#include <string>
#include <vector>

namespace atelier {

class Document;

// Runs the command of that upper-case name (leading _ . and ' are passed over). False when there is none.
bool runBuiltinCommand(Document& document, const std::string& name);
// Whether the command may run while a prompt of another one waits.
bool isTransparent(const std::string& name);
// All names of all commands, English and French ones, upper case, unsorted.
std::vector<std::string> commandNames();

}  // namespace atelier
