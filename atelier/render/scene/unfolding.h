// How many objects a drawing stands for when each reference is replaced by what its block holds. Inner header of the room.
#pragma once

#include "hote/dbmain.h"

namespace atelier::render {

// Throws PlotError, naming the block, when a reference of the model space alone or all together stand for more objects
// than a plot can hold. Takes no longer than the number of objects in the file.
void checkUnfolding(const AcDbDatabase& database, bool paper);

}  // namespace atelier::render
