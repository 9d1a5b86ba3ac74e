// The commands of the host itself, by name; applications' commands are AutoLISP functions C:NAME.
#pragma once
#include <string>

namespace atelier {

class Document;

// Runs the command of that upper-case name (leading _ . and ' are passed over). False when there is none.
bool runBuiltinCommand(Document& document, const std::string& name);
void requestQuit();
// Whether QUIT was given; asking forgets it.
bool quitRequested();

}  // namespace atelier
