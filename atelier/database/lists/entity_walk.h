// Walking the entities of the current space in drawing order.
// Erased ones are passed over.
#pragma once
#include "atelier/database/objects/imp_database.h"

namespace atelier {

// The next entity, followers of inserts and polylines included; the first one for null. Null at the end.
AcDbStub* nextEntity(AcDbImpDatabase& database, AcDbStub* after);
// The last main entity of the current space; null when it is empty.
AcDbStub* lastEntity(AcDbImpDatabase& database);

}  // namespace atelier
