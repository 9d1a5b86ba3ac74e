// Opening .dwg drawings through a converter, which is a process of its own.
// The converter is outils/dwg; faults of its output are repaired before it is read.
#pragma once
#include <string>
#include <string_view>

namespace atelier::exchange {

// The path of a temporary DXF file for a .dwg, which the caller removes; empty for a file of another kind. Throws
// FileError when the file or the converter is missing (the message says what to install), or it can't read the drawing.
std::string convertDrawing(const std::string& path);

// The converter's ASCII DXF with its known faults repaired: 16-bit integers above 32767 become negative again, a layer
// in extended data given as a handle in reversed hexadecimal gets its name, a text of an XRECORD cut into groups 3 is
// joined, doubled or needless backslashes before \U+ and quotes are removed. A text
// that was written over several lines, so that no group follows where one should, is one again.
std::string mended(std::string_view dxf);

}  // namespace atelier::exchange
