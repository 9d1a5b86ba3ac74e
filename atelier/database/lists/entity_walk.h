// Walking the entities of the current space in drawing order.
// Erased entities are left out.
#pragma once
#include "atelier/database/objects/imp_database.h"

namespace atelier {

// The entity after this one, or the first for null; attributes and vertices are included; after a BLOCK its
// first one. Null at the end.
AcDbStub* nextEntity(AcDbImpDatabase& database, AcDbStub* after);
// The first entity of the block whose BLOCK this is; null for any other object, and for an empty block.
AcDbStub* firstOfBlock(AcDbImpDatabase& database, const AcDbStub* begin);
// The last main entity of the current space; null when it is empty.
AcDbStub* lastEntity(AcDbImpDatabase& database);

}  // namespace atelier
