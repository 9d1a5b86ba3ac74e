// Reading the file of a script.
#pragma once
#include <string>
#include <string_view>

namespace atelier {

// The text of a script, UTF-8. Throws FileError for a folder and for what can't be read.
std::string readScript(const std::string& path);
std::string decodeScript(std::string_view bytes);

}  // namespace atelier
