// The AutoLISP functions that need a drawing, in tables by family, and how errors are shown.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "atelier/lisp/builtin.h"
#include "atelier/lisp/error.h"

namespace atelier {

// Every table of this room, and those that rooms above it have added.
std::vector<std::span<const lisp::Builtin>> drawingBuiltins();
// A table of a room above, for every document opened from now on; a second time changes nothing. It must stay.
void addDrawingBuiltins(std::span<const lisp::Builtin> table);

// The error for the user: message, file and line, and the chain of calls.
std::string errorText(const lisp::Error& error);

}  // namespace atelier
