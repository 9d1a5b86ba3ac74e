// Reads a real number from the start of a text, including values that std::from_chars refuses.
// Nothing here depends on the locale.
#pragma once
#include <charconv>

namespace atelier {

// As std::from_chars, but a number too great for a double gives infinity and one too small gives 0, without an error.
std::from_chars_result readReal(const char* first, const char* last, double& value,
                                std::chars_format format = std::chars_format::general);

}  // namespace atelier
