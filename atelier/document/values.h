// AutoLISP values to the host's chains and back, and the values that prompts accept.
// The chains are those in which published functions get their arguments.
#pragma once
#include <optional>
#include <span>
#include <string_view>

#include "atelier/lisp/evaluator/interpreter.h"
#include "hote/dbid.h"
#include "hote/ge.h"

namespace atelier {

// The arguments of a call as the chain that its handler reads; null for none. The caller releases it.
resbuf* chainOfArguments(lisp::Arguments arguments);
// A chain given by a handler, as a list. RTLB and RTLE around the whole chain are dropped; nodes with group codes
// become dotted pairs.
lisp::Value listOfChain(lisp::Interpreter& interpreter, const resbuf* chain);
lisp::Value valueOfNode(lisp::Interpreter& interpreter, const resbuf& node);

lisp::Value entityValue(lisp::Interpreter& interpreter, const AcDbStub* stub);  // nil for null
AcDbStub* stubOfValue(lisp::Value value);                                       // null for anything but an entity
std::optional<AcGePoint3d> pointFromValue(lisp::Value value);                   // a list of two or three numbers
// An entity name, or a list of one and a point as entsel gives it.
bool entityFromValue(lisp::Value value, AcDbObjectId& entity, AcGePoint3d& point);
lisp::Value pointValue(lisp::Interpreter& interpreter, const AcGePoint3d& point);

// The index after the expression at the start of the text; the text's size when its parentheses are not closed.
std::size_t expressionEnd(std::string_view text);
// How many parentheses stay open at the end of the text (strings and comments minded); negative: too many closed.
int openParentheses(std::string_view text);

}  // namespace atelier
