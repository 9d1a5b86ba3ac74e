// Copies of objects with what they own.
// Inner header of the house; applications ask the database for deep clones.
#pragma once
#include <functional>
#include <vector>

#include "atelier/database/objects/stub.h"
#include "hote/dbmain.h"

namespace atelier {

// Copies the objects of one drawing to that owner; references among them lead to the copies. `place` is called with each
// entity among the copies when all are there. An interruption takes all of them back.
void cloneAll(AcDbImpDatabase& from, const std::vector<AcDbStub*>& sources, AcDbStub& owner,
              const std::function<void(AcDbEntity&)>& place);

}  // namespace atelier
