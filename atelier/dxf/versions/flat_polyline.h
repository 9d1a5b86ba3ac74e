// A lightweight polyline as the POLYLINE with VERTEX records that R12 knows.
#pragma once
#include <vector>

#include "atelier/database/records/record.h"

namespace atelier::dxf {

// The groups of POLYLINE, its vertices and SEQEND. lwpolyline: a record of that type.
std::vector<Group> asOldPolyline(const Record& lwpolyline);

}  // namespace atelier::dxf
