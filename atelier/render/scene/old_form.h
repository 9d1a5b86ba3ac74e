// An entity as the simple ones that show the same: for versions of the format that lack its type.
#pragma once

#include <vector>

#include "atelier/database/objects/stub.h"
#include "atelier/database/records/group.h"

namespace atelier::render {

// Lines, polylines, filled areas as SOLID and texts, as groups of R12; the first record has the handle and the extended
// data of the entity, all have its layer, colour and line type. Seen from above; curves become chords. Empty when nothing
// of it is drawn.
std::vector<Group> oldForm(AcDbStub& stub);

}  // namespace atelier::render
