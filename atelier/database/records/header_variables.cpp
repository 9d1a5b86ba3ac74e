// Looking up and changing header variables.
// A drawing has about three hundred of them: a walk is quick enough.
#include "atelier/database/records/header_variables.h"

#include <algorithm>

namespace atelier {

const HeaderVariables::Variable* HeaderVariables::find(std::string_view name) const {
  const auto it = std::find_if(list.begin(), list.end(), [&](const Variable& v) { return v.name == name; });
  return it == list.end() ? nullptr : &*it;
}

double HeaderVariables::real(std::string_view name, double fallback) const {
  const Variable* v = find(name);
  return v && !v->values.empty() ? v->values.front().real() : fallback;
}

std::int64_t HeaderVariables::integer(std::string_view name, std::int64_t fallback) const {
  const Variable* v = find(name);
  return v && !v->values.empty() ? v->values.front().integer() : fallback;
}

std::string HeaderVariables::text(std::string_view name, std::string_view fallback) const {
  const Variable* v = find(name);
  return v && !v->values.empty() ? v->values.front().text() : std::string(fallback);
}

void HeaderVariables::set(std::string_view name, const Group& value) {
  Variable* v = const_cast<Variable*>(find(name));
  if (!v) v = &list.emplace_back(Variable{std::string(name), {}});
  if (v->values.size() == 1 && v->values.front().sameValue(value)) return;
  v->values.assign(1, value);
  v->changed = true;
}

void HeaderVariables::setPoint(std::string_view name, const AcGePoint3d& point) {
  Variable* v = const_cast<Variable*>(find(name));
  if (!v) v = &list.emplace_back(Variable{std::string(name), {}});
  const bool flat = v->values.size() == 2;
  v->values = {Group::real(10, point.x), Group::real(20, point.y)};
  if (!flat) v->values.push_back(Group::real(30, point.z));
  v->changed = true;
}

}  // namespace atelier
