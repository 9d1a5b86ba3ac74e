// The header variables of a drawing ($INSUNITS and its like), in file order.
// Reference: DXF reference, chapter "HEADER section".
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/records/group.h"

namespace atelier {

class HeaderVariables {
 public:
  struct Variable {
    std::string name;  // with its dollar sign
    std::vector<Group> values;
    bool changed = false;
    std::uint64_t offset = 0;  // of its values in the file, after the name
    std::uint64_t length = 0;
  };

  const Variable* find(std::string_view name) const;
  bool has(std::string_view name) const { return find(name) != nullptr; }
  double real(std::string_view name, double fallback) const;
  std::int64_t integer(std::string_view name, std::int64_t fallback) const;
  std::string text(std::string_view name, std::string_view fallback) const;
  // Replaces the value; a variable that is missing is added at the end.
  void set(std::string_view name, const Group& value);
  void setPoint(std::string_view name, const AcGePoint3d& point);
  void add(Variable variable) { list.push_back(std::move(variable)); }

  std::vector<Variable> list;
};

}  // namespace atelier
