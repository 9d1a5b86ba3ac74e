// The part of a block that a reference shows.
// Reference: DXF reference, "SPATIAL_FILTER".
#pragma once
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "hote/ge.h"

namespace atelier {

// The corners of what the reference shows, in the coordinates of the block's contents; empty: everything.
std::vector<AcGePoint3d> blockClip(AcDbImpDatabase& database, const Record& reference);

}  // namespace atelier
