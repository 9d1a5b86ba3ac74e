// The order in which the entities of a block are drawn, which a user may change.
// Reference: DXF reference, "SORTENTSTABLE".
#pragma once
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// The entities of a block that are not erased, the lowest first.
std::vector<AcDbStub*> inDrawOrder(AcDbImpDatabase& database, AcDbStub& block);

// Keeps that order of all entities of a block in its table, which is made when it is missing. The handles of the entities,
// in their order, are the places.
void setDrawOrder(AcDbImpDatabase& database, AcDbStub& block, const std::vector<AcDbStub*>& order);

}  // namespace atelier
