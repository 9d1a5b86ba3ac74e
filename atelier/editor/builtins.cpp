// The list of this room's tables.
#include "atelier/editor/builtins.h"

#include "atelier/editor/builtin_tables.h"

namespace atelier {

std::vector<std::span<const lisp::Builtin>> drawingBuiltins() {
  return {entityBuiltins(), tableBuiltins(),    dictionaryBuiltins(), promptBuiltins(),
          screenBuiltins(), selectionBuiltins(), variableBuiltins(), commandBuiltins(), failureBuiltins(),
          curveBuiltins(),  dialogBuiltins()};
}

}  // namespace atelier
