// The variables that say how dimensions look: in the header for new dimensions, in a style, in a dimension's own overrides.
// Reference: DXF reference, "DIMSTYLE" and "HEADER Section Group Codes".
#pragma once
#include <span>
#include <string_view>

namespace atelier {

struct DimensionVariable {
  std::string_view name;
  int code;      // in a style and in overrides
  double value;  // where a drawing says nothing: the metric one; lengths in units of the drawing
  std::string_view help;
  bool isReal() const { return code < 60 || (code >= 140 && code < 150); }
};

std::span<const DimensionVariable> dimensionVariables();

}  // namespace atelier
