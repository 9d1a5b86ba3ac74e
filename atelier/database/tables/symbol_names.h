// The rule for names in symbol tables.
// It is that of the "extended names" which drawings have since R2000.
#pragma once
#include <string_view>

namespace atelier {

// Whether a symbol table accepts the name: 1 to 255 characters, none of < > / \ " : ; ? * | , = ` or a control character.
bool isSymbolName(std::string_view name);

}  // namespace atelier
