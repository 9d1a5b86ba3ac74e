// Reading and setting system variables by their rows.
// A real variable accepts an integer; an integer variable doesn't accept a real.
#include "atelier/document/system_variables.h"

#include "atelier/base/text.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

using Value = SystemVariables::Value;
using Point = SystemVariables::Point;

bool withinLimits(const VariableRow& row, double number) {
  return (row.low == 0 && row.high == 0) || (number >= row.low && number <= row.high);
}

Value defaultOf(const VariableRow& row) {
  switch (row.kind) {
    case VariableKind::integer: return static_cast<int>(row.number);
    case VariableKind::real: return row.number;
    case VariableKind::text: return std::string(row.text);
    default: return Point{AcGePoint3d(row.number, row.number, 0), row.kind == VariableKind::point2};
  }
}

// The value converted to the row's kind; nothing when it is of another kind or beyond the limits.
std::optional<Value> fitted(VariableKind kind, const Value& value) {
  switch (kind) {
    case VariableKind::integer: return value.index() == 0 ? std::optional(value) : std::nullopt;
    case VariableKind::real:
      if (const int* number = std::get_if<int>(&value)) return Value(static_cast<double>(*number));
      return value.index() == 1 ? std::optional(value) : std::nullopt;
    case VariableKind::text: return value.index() == 2 ? std::optional(value) : std::nullopt;
    default: return value.index() == 3 ? std::optional(value) : std::nullopt;
  }
}

double numberOf(const Value& value) {
  if (const int* number = std::get_if<int>(&value)) return *number;
  return std::holds_alternative<double>(value) ? std::get<double>(value) : 0;
}

// --- variables of the header

std::optional<Value> headerValue(const HeaderVariables::Variable& variable) {
  if (variable.values.empty()) return std::nullopt;
  const Group& first = variable.values.front();
  if (variable.values.size() > 1)
    return Point{AcGePoint3d(first.real(), variable.values[1].real(),
                             variable.values.size() > 2 ? variable.values[2].real() : 0),
                 variable.values.size() == 2};
  switch (first.kind()) {
    case GroupKind::integer: return static_cast<int>(first.integer());
    case GroupKind::real: return first.real();
    case GroupKind::text: return first.text();
    default: return std::nullopt;
  }
}

VariableKind kindOf(const Value& value) {
  constexpr VariableKind kKinds[] = {VariableKind::integer, VariableKind::real, VariableKind::text,
                                     VariableKind::point3};
  return kKinds[value.index()];
}

void writeHeader(HeaderVariables& header, const std::string& name, int code, const Value& value) {
  if (const int* number = std::get_if<int>(&value)) header.set(name, Group::integer(code, *number));
  else if (const double* real = std::get_if<double>(&value)) header.set(name, Group::real(code, *real));
  else if (const std::string* text = std::get_if<std::string>(&value)) header.set(name, Group::text(code, *text));
  else header.setPoint(name, std::get<Point>(value).value);
}

}  // namespace

std::optional<Value> SystemVariables::value(std::string_view given) const {
  const std::string name = upperCase(given);
  const VariableRow* row = table_.row(name);
  if (row && row->place == VariablePlace::computed) return table_.computed(name)->get(document_);
  if (row && row->place == VariablePlace::document) {
    const auto it = own_.find(name);
    return it != own_.end() ? it->second : defaultOf(*row);
  }
  const HeaderVariables::Variable* variable = document_.imp().header.find("$" + name);
  if (!variable) return row ? std::optional(defaultOf(*row)) : std::nullopt;
  const auto kept = headerValue(*variable);
  return kept && row ? fitted(row->kind, *kept) : kept;
}

bool SystemVariables::set(std::string_view given, const Value& value) {
  const std::string name = upperCase(given);
  const VariableRow* row = table_.row(name);
  if (row && row->readOnly) return false;
  if (row && row->place == VariablePlace::computed) {
    const ComputedVariable* computed = table_.computed(name);
    const auto fit = row->kind == VariableKind::real ? fitted(row->kind, value) : std::optional(value);
    return computed->set && fit && computed->set(document_, *fit);
  }
  HeaderVariables& header = document_.imp().header;
  const HeaderVariables::Variable* variable = header.find("$" + name);
  if (!row && !variable) return false;
  const auto before = this->value(name);
  if (!row && !before) return false;
  const auto fit = fitted(row ? row->kind : kindOf(*before), value);
  if (!fit || (row && !withinLimits(*row, numberOf(*fit)))) return false;
  if (row && row->place == VariablePlace::document) {
    own_[name] = *fit;
  } else {
    writeHeader(header, "$" + name, variable && !variable->values.empty() ? variable->values.front().code() : row->code,
                *fit);
    document_.imp().modified = true;
  }
  return true;
}

std::optional<SystemVariables::Setting> SystemVariables::get(std::string_view name) const {
  const auto found = value(name);
  if (!found) return std::nullopt;
  if (const int* number = std::get_if<int>(&*found)) return Setting(*number);
  if (const double* real = std::get_if<double>(&*found)) return Setting(*real);
  if (const std::string* text = std::get_if<std::string>(&*found)) return Setting(*text);
  return std::nullopt;
}

}  // namespace atelier
