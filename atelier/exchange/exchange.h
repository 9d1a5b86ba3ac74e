// Adds this room's functions and converter to every drawing opened after the call.
#pragma once
#include <span>

#include "atelier/lisp/values/builtin.h"

namespace atelier::exchange {

// Called once at the start of a program.
void provideExchange();

std::span<const lisp::Builtin> landXmlBuiltins();
std::span<const lisp::Builtin> textBuiltins();

}  // namespace atelier::exchange
