// Copies of objects with what they own.
// For the host's own rooms; applications use the database's deepCloneObjects.
#pragma once
#include <functional>
#include <vector>

#include "atelier/database/objects/stub.h"
#include "hote/dbmain.h"

namespace atelier {

// Copies the objects of one drawing to that owner; references among them then lead to the copies. When all are made,
// `place` is called with each copied entity. An interruption removes all copies.
void cloneAll(AcDbImpDatabase& from, const std::vector<AcDbStub*>& sources, AcDbStub& owner,
              const std::function<void(AcDbEntity&)>& place);

}  // namespace atelier
