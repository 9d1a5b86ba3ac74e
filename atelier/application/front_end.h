// Where the front-end and its files are, and loading it.
#pragma once
#include <string>

namespace atelier {

class Document;

// KAVEL_FRONTAL when set, else share/kavel/frontal beside the program's folder, else the source tree's. Empty when
// there is none.
std::string frontalFolder();
// False after a message on stderr when the folder is missing or the front-end fails to load.
bool loadFrontal(Document& document);

}  // namespace atelier
