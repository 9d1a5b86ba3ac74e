// What a drawing holds that can't be drawn.
#pragma once

#include <map>
#include <string>

#include "hote/dbmain.h"

namespace atelier::render {

// By type, with the reason (French) where the type as such can be drawn: of the model space, of layouts and of blocks, each
// once however often it is shown.
std::map<std::string, std::size_t> undrawn(const AcDbDatabase& database);

}  // namespace atelier::render
