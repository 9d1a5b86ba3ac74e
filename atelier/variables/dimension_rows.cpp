// The settings of new dimensions, from the table that styles are read by.
#include <vector>

#include "atelier/database/dimensions/dimension_variables.h"
#include "atelier/variables/variable_rows.h"

namespace atelier {

std::span<const VariableRow> dimensionVariableRows() {
  static const std::vector<VariableRow> rows = [] {
    std::vector<VariableRow> made;
    for (const DimensionVariable& v : dimensionVariables()) {
      if (v.isReal()) made.push_back(headerReal(v.name, 40, v.value, v.help));
      else made.push_back(headerInt(v.name, 70, static_cast<int>(v.value), -32768, 32767, v.help));
    }
    return made;
  }();
  return rows;
}

}  // namespace atelier
