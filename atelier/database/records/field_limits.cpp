// Whether a value fits its field, and what would.
// Limits are those that the reference gives; where programs write beyond it without harm the table has none.
#include <algorithm>
#include <charconv>
#include <cmath>

#include "atelier/database/records/fields.h"
#include "atelier/database/records/group.h"

namespace atelier {
namespace {

std::string shortest(double value) {
  char buffer[32];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

bool within(const Limits& limits, double value) {
  if (!limits.list.empty()) return std::ranges::find(limits.list, value) != limits.list.end();
  return (limits.open ? value > limits.least : value >= limits.least) && value <= limits.most;
}

}  // namespace

bool fits(const Field& field, const Group& group) {
  switch (field.kind) {
    case FieldKind::text: return group.kind() == GroupKind::text;
    case FieldKind::handle: return group.kind() == GroupKind::handle;
    case FieldKind::integer: return group.kind() == GroupKind::integer && within(field.limits, group.real());
    default:
      return group.kind() == GroupKind::real && std::isfinite(group.real()) && within(field.limits, group.real());
  }
}

std::string expected(const Field& field) {
  const auto& [least, most, open, list] = field.limits;
  std::string text;
  for (const int value : list) text += (text.empty() ? "" : ", ") + std::to_string(value);
  if (!list.empty()) return text;
  if (std::isfinite(most)) return shortest(least) + " a " + shortest(most);
  return std::isfinite(least) ? (open ? "> " : ">= ") + shortest(least) : std::string();
}

}  // namespace atelier
