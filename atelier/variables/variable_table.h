// The rows of the system variables.
// Reference: "System variables" of the host's documentation.
#pragma once
#include <optional>
#include <span>
#include <string_view>

#include "atelier/document/system_variables.h"

namespace atelier {

// A colour by number or name, English or French; 0 by block, 256 by layer. Nothing for any other text.
std::optional<int> colorNumber(std::string_view text);

std::span<const VariableRow> variableRows();
const VariableRow* variableRow(std::string_view upperName);  // null for an unknown name
const ComputedVariable* computedVariable(std::string_view upperName);

}  // namespace atelier
