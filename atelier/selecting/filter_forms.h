// Filters from the two forms in which programs give them: an association list, or a chain of result nodes.
// Inner header of the room.
#pragma once
#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/selecting/selections.h"

namespace atelier {

// ((0 . "TEXT") (-4 . ">") (40 . 2.5) (-3 ("APP"))). Fails the program with "bad SSGET list" for what is no
// filter.
SelectionFilter filterOfList(lisp::Interpreter& interpreter, lisp::Value list);
// Nodes with group codes; RTDXF0 stands for 0, texts behind -3 (1001) are applications. Null gives the empty
// filter; nothing for a chain that is no filter.
std::optional<SelectionFilter> filterOfChain(const resbuf* chain, AcDbImpDatabase& database);

}  // namespace atelier
