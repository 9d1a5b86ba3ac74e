// Reading a real from the start of a text, beyond what std::from_chars gives.
// Nothing here depends on the locale.
#pragma once
#include <charconv>

namespace atelier {

// std::from_chars, but what is too great for a double is infinite and what is too small is 0: no error.
std::from_chars_result readReal(const char* first, const char* last, double& value,
                                std::chars_format format = std::chars_format::general);

}  // namespace atelier
