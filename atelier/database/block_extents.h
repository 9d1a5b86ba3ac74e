// The box around what a block holds, in the block's own coordinates; references and dimensions take theirs from it.
// Empty for a block without geometry; a block that comes round to itself adds nothing the second time.
#pragma once
#include "hote/dbmain.h"

namespace atelier {

AcDbExtents blockExtents(AcDbObjectId block);

}  // namespace atelier
