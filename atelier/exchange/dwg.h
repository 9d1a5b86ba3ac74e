// Opening .dwg drawings through a converter, which is a process of its own.
// The converter is outils/dwg; its output is mended before it is read.
#pragma once
#include <string>
#include <string_view>

namespace atelier::exchange {

// The path of a temporary DXF file for a .dwg, which the caller removes; empty for a file of another kind. Throws FileError: no
// such file, no converter (the message says what to install), a drawing that it can't read.
std::string convertDrawing(const std::string& path);

// ASCII DXF as the converter writes it, with its known faults mended: 16-bit integers above 32767 are negative again, a layer in
// extended data that is a handle in reversed hexadecimal gets its name, a text of an XRECORD that was cut into groups 3 is whole,
// doubled or needless backslashes before \U+ and quotes go. What is no group stays as it is.
std::string mended(std::string_view dxf);

}  // namespace atelier::exchange
