// A list put into a record: what the list changes is changed, what it leaves out stays.
// Reference: AutoLISP function entmod.
#pragma once
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// The object's record with the list's groups (up to the XDATA, angles in degrees) in it. Values as shownGroups gives them
// change nothing, so that defaults aren't written. Groups that a record repeats (vertices, control points, entries) are
// given all together or not at all. Handle, owner and space of an object can't be changed.
Record mergedRecord(AcDbStub& stub, const std::vector<Group>& given);

}  // namespace atelier
