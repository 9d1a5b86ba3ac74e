// The listing of the option --list: entities by type, layers, profiles in short.
#pragma once
#include <string>

namespace atelier {
class Document;
}

namespace atelier::console {

std::string listing(Document& document);

}  // namespace atelier::console
