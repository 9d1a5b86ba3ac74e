// AutoLISP values to the host's chains and back, and the few values that prompts take.
// The forms are those in which published functions meet their arguments.
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
// A chain that a handler hands over, as a list. A bracket pair around the whole is the list itself; nodes with group
// codes become dotted pairs.
lisp::Value listOfChain(lisp::Interpreter& interpreter, const resbuf* chain);
lisp::Value valueOfNode(lisp::Interpreter& interpreter, const resbuf& node);

lisp::Value entityValue(lisp::Interpreter& interpreter, const AcDbStub* stub);  // nil for null
AcDbStub* stubOfValue(lisp::Value value);                                       // null for anything but an entity
std::optional<AcGePoint3d> pointFromValue(lisp::Value value);                   // a list of two or three numbers
// An entity name, or a list of one and a point as entsel gives it.
bool entityFromValue(lisp::Value value, AcDbObjectId& entity, AcGePoint3d& point);
lisp::Value pointValue(lisp::Interpreter& interpreter, const AcGePoint3d& point);

// Index behind the expression that opens the text; its size when the parentheses are not closed.
std::size_t expressionEnd(std::string_view text);
// How many parentheses stay open at the end of the text (strings and comments minded); negative: too many closed.
int openParentheses(std::string_view text);

}  // namespace atelier
