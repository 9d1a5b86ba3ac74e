// Filters from the two forms in which programs give them: an association list, or a chain of result nodes.
// Inner header of the room.
#pragma once
#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/selecting/selections.h"

namespace atelier {

// From a list such as ((0 . "TEXT") (-4 . ">") (40 . 2.5) (-3 ("APP"))). The AutoLISP error "bad SSGET list" for any
// list that isn't a filter.
SelectionFilter filterOfList(lisp::Interpreter& interpreter, lisp::Value list);
// From nodes with group codes; RTDXF0 stands for 0, texts after -3 (1001) are applications. A null chain gives the
// empty filter, a chain that isn't a filter nothing.
std::optional<SelectionFilter> filterOfChain(const resbuf* chain, AcDbImpDatabase& database);

}  // namespace atelier
