// The AutoLISP functions that need a drawing, in tables by family, and how errors are shown.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "atelier/lisp/builtin.h"
#include "atelier/lisp/error.h"

namespace atelier {

// Every table of this room.
std::vector<std::span<const lisp::Builtin>> drawingBuiltins();

// The error for the user: message, file and line, and the chain of calls.
std::string errorText(const lisp::Error& error);

}  // namespace atelier
