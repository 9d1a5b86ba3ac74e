// The letters of the stroke font "gdt", which are drawn as the signs of geometric tolerances.
#pragma once

#include <string_view>

namespace atelier::fonts {

// Whether a font file of that name has signs in the place of letters.
bool hasSymbols(std::string_view file);
// The sign for a letter of such a font; the letter itself when it has none.
char32_t symbolFor(char32_t letter);

}  // namespace atelier::fonts
