// The names that a list refers to: layers, styles, line types, applications.
// Inner header of the room.
#pragma once
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Whether the drawing has all the names that the list refers to; those that stood in `before` (null for a new object) are
// not asked for. Layers don't count: a missing one is made.
bool referencesExist(AcDbImpDatabase& database, const std::vector<Group>& groups, const Record* before);
// Makes the entity's layer when it is missing, as the reference does.
void ensureLayer(AcDbImpDatabase& database, const Record& entity);

}  // namespace atelier
