// The list of this room's tables and of those that rooms above it bring.
#include "atelier/editor/builtins.h"

#include "atelier/editor/builtin_tables.h"

#include <algorithm>

namespace atelier {
namespace {

std::vector<std::span<const lisp::Builtin>>& addedTables() {
  static std::vector<std::span<const lisp::Builtin>> tables;
  return tables;
}

}  // namespace

void addDrawingBuiltins(std::span<const lisp::Builtin> table) {
  auto& tables = addedTables();
  if (std::none_of(tables.begin(), tables.end(), [&](const auto& known) { return known.data() == table.data(); }))
    tables.push_back(table);
}

std::vector<std::span<const lisp::Builtin>> drawingBuiltins() {
  std::vector<std::span<const lisp::Builtin>> tables = {entityBuiltins(),   tableBuiltins(),   dictionaryBuiltins(),
                                                        promptBuiltins(),   screenBuiltins(),  selectionBuiltins(),
                                                        variableBuiltins(), commandBuiltins(), failureBuiltins(),
                                                        curveBuiltins(),    dialogBuiltins(),  dclBuiltins()};
  tables.insert(tables.end(), addedTables().begin(), addedTables().end());
  return tables;
}

}  // namespace atelier
