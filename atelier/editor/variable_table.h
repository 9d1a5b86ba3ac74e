// The table of system variables: name, type, place, default, limits, help.
// Inner header of the room. Reference: "System variables" of the host's documentation.
#pragma once
#include <span>
#include <string_view>

#include "atelier/editor/system_variables.h"

namespace atelier {

enum class VariableKind : unsigned char { integer, real, text, point2, point3 };
// header: in the drawing, under the name with a dollar sign; document: for the session; computed: by
// functions.
enum class VariablePlace : unsigned char { header, document, computed };

struct VariableRow {
  std::string_view name;
  VariableKind kind = VariableKind::integer;
  VariablePlace place = VariablePlace::document;
  int code = 0;             // group of the value in the header, when it has to be added there
  double number = 0;        // default of numbers
  std::string_view text{};  // default of texts
  bool readOnly = false;
  double low = 0, high = 0;  // limits of numbers; none when both are 0
  std::string_view help{};
};

struct ComputedVariable {
  std::string_view name;
  SystemVariables::Value (*get)(Document&);
  bool (*set)(Document&, const SystemVariables::Value&);  // null: read-only
};

// A colour by number or name, English or French; 0 by block, 256 by layer. Nothing for what is no colour.
std::optional<int> colorNumber(std::string_view text);

std::span<const VariableRow> variableRows();
const VariableRow* variableRow(std::string_view upperName);  // null for an unknown name
const ComputedVariable* computedVariable(std::string_view upperName);

}  // namespace atelier
