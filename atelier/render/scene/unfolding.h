// How many objects a drawing stands for when each reference is replaced by what its block holds. Inner header of the room.
#pragma once

#include "atelier/render/scene/scene.h"

namespace atelier::render {

// Throws PlotError, naming the block, when a reference of the space alone or all together stand for more objects
// than a plot can hold. Takes no longer than the number of objects in the file.
void checkUnfolding(const AcDbDatabase& database, const SceneOptions& options);

}  // namespace atelier::render
