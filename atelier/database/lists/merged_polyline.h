// The section of a light polyline with the groups of a list put into it.
// Inner header of the room.
#pragma once
#include "atelier/database/lists/merged_section.h"

namespace atelier {

// As mergedSection. The vertices are given all together; a constant width that the list changes holds for all of them,
// widths that it gives to single vertices end a constant one.
std::vector<Group> mergedPolyline(const SectionMerge& section);

}  // namespace atelier
