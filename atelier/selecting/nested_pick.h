// The entity inside a block that was picked, as nentsel gives it.
// Inner header of the room.
#pragma once
#include "atelier/lisp/evaluator/interpreter.h"
#include "hote/dbmain.h"

namespace atelier {

class Document;

// (entity point) for an entity of the drawing or an attribute; (entity point matrix (inserts...)) for a part of a
// block: the matrix from block to world coordinates as four rows of three, and the inserts, innermost first.
lisp::Value nestedPick(Document& document, AcDbObjectId picked, const AcGePoint3d& point);

}  // namespace atelier
