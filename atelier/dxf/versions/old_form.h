// What an entity becomes in a version that lacks its type: the simple entities that show the same.
// Whoever draws knows that; a program without it leaves such entities out, and says so.
#pragma once
#include <functional>
#include <vector>

#include "atelier/database/objects/stub.h"
#include "atelier/database/records/group.h"

namespace atelier::dxf {

// The groups of R12 records in place of the entity, group 0 first, the entity's handle in the first one; empty when
// nothing of it can be shown.
using OldForm = std::function<std::vector<Group>(AcDbStub&)>;

// Sets what every export uses from now on.
void provideOldForm(OldForm form);
const OldForm& oldForm();

}  // namespace atelier::dxf
