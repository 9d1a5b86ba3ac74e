// The groups of copied objects: a group whose members were all copied is copied with them.
// Inner header of the room. Applications then find the copies of what belongs together by the copied group.
#pragma once
#include <unordered_map>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Objects and their copies.
using CloneMap = std::unordered_map<AcDbStub*, AcDbStub*>;

// The groups of the drawing all of whose members are in the map, in the order of their dictionary.
std::vector<AcDbStub*> wholeGroups(AcDbImpDatabase& database, const CloneMap& map);

AcDbStub& groupDictionary(AcDbImpDatabase& database);

// Gives a copied group, whose references are translated, a free name without meaning ("*A1"), as every copy of a group has.
void enterGroup(AcDbStub& group);

}  // namespace atelier
