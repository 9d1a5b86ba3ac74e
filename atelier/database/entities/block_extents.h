// The box around a block's contents in the block's own coordinates, from which references and dimensions get theirs.
// Empty for a block without geometry; a block that contains itself adds nothing the second time.
#pragma once
#include "hote/dbmain.h"

namespace atelier {

AcDbExtents blockExtents(AcDbObjectId block);

// While one lives, each block's box is worked out once: nested blocks would otherwise be walked as often as they are
// shown. Nothing may be changed meanwhile.
class BlockExtentsKept {
 public:
  BlockExtentsKept();
  ~BlockExtentsKept();
  BlockExtentsKept(const BlockExtentsKept&) = delete;
  BlockExtentsKept& operator=(const BlockExtentsKept&) = delete;
};

}  // namespace atelier
