// How rows of system variables are written.
// Inner header of the room.
#pragma once
#include "atelier/variables/variable_table.h"

namespace atelier {

constexpr VariableRow integerIn(VariablePlace place, std::string_view name, int code, int value, double low,
                                double high, std::string_view help) {
  return {name, VariableKind::integer, place, code, static_cast<double>(value), {}, false, low, high, help};
}
constexpr VariableRow headerInt(std::string_view name, int code, int value, double low, double high,
                                std::string_view help) {
  return integerIn(VariablePlace::header, name, code, value, low, high, help);
}
constexpr VariableRow sessionInt(std::string_view name, int value, double low, double high, std::string_view help) {
  return integerIn(VariablePlace::document, name, 0, value, low, high, help);
}
constexpr VariableRow fixedInt(std::string_view name, int value, std::string_view help) {
  return {name, VariableKind::integer, VariablePlace::document, 0, static_cast<double>(value), {}, true, 0, 0, help};
}
constexpr VariableRow headerReal(std::string_view name, int code, double value, std::string_view help, double low = 0,
                                 double high = 0) {
  return {name, VariableKind::real, VariablePlace::header, code, value, {}, false, low, high, help};
}
constexpr VariableRow sessionReal(std::string_view name, double value, std::string_view help) {
  return {name, VariableKind::real, VariablePlace::document, 0, value, {}, false, 0, 0, help};
}
constexpr VariableRow sessionText(std::string_view name, std::string_view value, std::string_view help) {
  return {name, VariableKind::text, VariablePlace::document, 0, 0, value, false, 0, 0, help};
}
constexpr VariableRow fixedText(std::string_view name, std::string_view value, std::string_view help) {
  return {name, VariableKind::text, VariablePlace::document, 0, 0, value, true, 0, 0, help};
}
constexpr VariableRow computed(std::string_view name, VariableKind kind, std::string_view help) {
  return {name, kind, VariablePlace::computed, 0, 0, {}, false, 0, 0, help};
}

// Settings of windows and commands that this host doesn't have. Programs set them and set them back, so they are known and
// keep their values.
std::span<const VariableRow> keptVariableRows();
std::span<const VariableRow> dimensionVariableRows();

}  // namespace atelier
