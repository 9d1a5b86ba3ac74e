// The tables of this room's AutoLISP functions, one family a file.
// Inner header of the room.
#pragma once
#include <span>

#include "atelier/lisp/values/builtin.h"

namespace atelier {

std::span<const lisp::Builtin> entityBuiltins();
std::span<const lisp::Builtin> tableBuiltins();
std::span<const lisp::Builtin> dictionaryBuiltins();
std::span<const lisp::Builtin> promptBuiltins();
std::span<const lisp::Builtin> screenBuiltins();
std::span<const lisp::Builtin> selectionBuiltins();
std::span<const lisp::Builtin> variableBuiltins();
std::span<const lisp::Builtin> commandBuiltins();
std::span<const lisp::Builtin> failureBuiltins();
std::span<const lisp::Builtin> sharedBuiltins();
std::span<const lisp::Builtin> dialogBuiltins();
std::span<const lisp::Builtin> dclBuiltins();
std::span<const lisp::Builtin> dclImageBuiltins();
std::span<const lisp::Builtin> curveBuiltins();

}  // namespace atelier
