// The questions of MOVE and STRETCH about where to.
// Inner header of the room.
#pragma once
#include "atelier/commands/command_prompts.h"

namespace atelier {

// By two points, by one that is the displacement, or by a vector.
CommandTask askDisplacement(Command& c, AcGeVector3d& by);

}  // namespace atelier
