// The box around what a block holds, in the block's own coordinates; references and dimensions take theirs from it.
// Empty for a block without geometry; a block that comes round to itself adds nothing the second time.
#pragma once
#include "hote/dbmain.h"

namespace atelier {

AcDbExtents blockExtents(AcDbObjectId block);

// While one lives, each block's box is worked out once: blocks that hold each other by the dozen, many levels deep,
// would otherwise be walked as often as they show. Nothing is to be changed meanwhile.
class BlockExtentsKept {
 public:
  BlockExtentsKept();
  ~BlockExtentsKept();
  BlockExtentsKept(const BlockExtentsKept&) = delete;
  BlockExtentsKept& operator=(const BlockExtentsKept&) = delete;
};

}  // namespace atelier
