// Where the groups of R12's records go in later versions, behind which subclass marks.
// Reference: DXF reference, subclass marks of R13 and later.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/records/group.h"

namespace atelier::dxf {

using Groups = std::vector<Group>;

// A mark and the codes of the groups that stand behind it; no codes: all the rest. "AcDbText#2" is a second one.
struct Part {
  std::string_view mark;
  std::vector<int> codes;
};

// The parts of an entity behind AcDbEntity, the last one first: groups are dealt out in this order. Empty: R12 has the
// type and later versions haven't.
std::vector<Part> partsOf(const std::string& type, const Groups& groups);

// Whether the group stands in the part that all entities share.
bool isCommon(int code);

// The second mark of a table's records.
std::string_view recordMark(std::string_view table);

}  // namespace atelier::dxf
