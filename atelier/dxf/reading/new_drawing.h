// The bytes of new_drawing.dxf, built into the program.
#pragma once
#include <string_view>

namespace atelier::dxf {

std::string_view newDrawingText();

}  // namespace atelier::dxf
