// Numbers that people wrote: a decimal point or comma, blanks around; the whole text must be one.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace etu {

std::optional<double> nombreDe(std::string_view texte);
std::optional<double> nombreDe(std::wstring_view texte);

// A count with the word for what is counted, which takes an s from two on.
std::wstring compte(std::size_t nombre, const std::wstring& mot);

}  // namespace etu
