// One section of a record with the groups of a list put into it.
// Inner header of the room.
#pragma once
#include <string_view>
#include <vector>

#include "atelier/database/records/record.h"

namespace atelier {

struct SectionMerge {
  std::string_view mark;
  const RecordFormat* format;  // null for a type that is only carried
  const std::vector<Group>&stored, &shown, &given;
};

// The section's groups afterwards: those stored, with the values in which the list differs from what is shown.
std::vector<Group> mergedSection(const SectionMerge& section);
// The same without what is particular to a section.
std::vector<Group> mergedGroups(const SectionMerge& section);

}  // namespace atelier
