// After which subclass mark the groups of R12's records are placed in later versions.
// Reference: DXF reference, subclass marks of R13 and later.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/records/group.h"

namespace atelier::dxf {

using Groups = std::vector<Group>;

// A mark and the codes of the groups after it; no codes: all others. "AcDbText#2" is the second mark of that name.
struct Part {
  std::string_view mark;
  std::vector<int> codes;
};

// The parts of an entity after AcDbEntity, the last one first: each group goes to the first part that takes it. Empty
// for a type that R12 has and later versions don't.
std::vector<Part> partsOf(const std::string& type, const Groups& groups);

// Whether the group belongs to the part that all entities have.
bool isCommon(int code);

// The second mark of a table's records.
std::string_view recordMark(std::string_view table);

}  // namespace atelier::dxf
