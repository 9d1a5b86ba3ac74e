// Names in symbol tables.
// Names as they are since R2000 ("extended names").
#pragma once
#include <string_view>

namespace atelier {

// Whether a symbol table takes the name: 1 to 255 characters, none of < > / \ " : ; ? * | , = ` and no controls.
bool isSymbolName(std::string_view name);

}  // namespace atelier
