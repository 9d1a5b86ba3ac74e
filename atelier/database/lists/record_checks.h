// Whether a list makes an object that the drawing can hold.
#pragma once
#include "atelier/database/records/record.h"

namespace atelier {

// Whether the list of a new object has all groups that its type can't do without.
bool hasNeeded(const std::vector<Group>& given);
// False for a record with a number outside its limits, a polyline without vertices, a spline whose counts don't match.
// Values that stood in `before` (null for a new object) are not judged.
bool canBe(const Record& record, const Record* before);

}  // namespace atelier
