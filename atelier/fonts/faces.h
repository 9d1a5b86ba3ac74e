// The open faces of the process, and the lock that guards them.
// Inner header of the room.
#pragma once

#include <mutex>

#include "atelier/fonts/face.h"

namespace atelier::fonts {

// One lock for FreeType, the faces and their glyphs; recursive because a glyph that a face lacks is asked
// from another face.
std::recursive_mutex& fontLock();

// A face that has the character; null when no installed font has it.
const Face* faceWith(char32_t c);

}  // namespace atelier::fonts
