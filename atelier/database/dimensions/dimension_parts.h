// The picture of a dimension, made from its definition points and its style.
#pragma once
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Lines, arcs, arrows and the paragraph of a dimension, as entities on layer 0 with colours by block: what the dimension's
// block holds, in world coordinates. Empty for a dimension whose points can't be one.
// Reference: DXF reference, "DIMENSION" and "DIMSTYLE".
std::vector<Record> dimensionParts(AcDbImpDatabase& database, const Record& dimension);

}  // namespace atelier
