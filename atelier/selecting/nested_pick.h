// The entity inside a block that a pick meant, as nentsel gives it.
// Inner header of the room.
#pragma once
#include "atelier/lisp/evaluator/interpreter.h"
#include "hote/dbmain.h"

namespace atelier {

class Document;

// (entity point) for an entity of the drawing or an attribute; (entity point matrix (inserts...)) for a part
// of a block, the matrix as four rows of three that lead from the block to the world, the inserts innermost
// first.
lisp::Value nestedPick(Document& document, AcDbObjectId picked, const AcGePoint3d& point);

}  // namespace atelier
