// Coordinate systems by their codes: 0 world, 1 user, 2 display, 3 paper, or the plane of an entity or a
// normal. The user's and the display's are the world's here. Reference: acedTrans, AutoLISP's trans.
#pragma once
#include <optional>

#include "hote/dbid.h"
#include "hote/ge.h"

namespace atelier {

// From the system of that code to the world; nothing for an unknown code.
std::optional<AcGeMatrix3d> systemByCode(int code);
// From the plane of an entity (its normal, group 210) to the world.
AcGeMatrix3d systemOfEntity(const AcDbStub& entity);
AcGeMatrix3d systemOfNormal(const AcGeVector3d& normal);
AcGePoint3d translated(const AcGePoint3d& point, const AcGeMatrix3d& from, const AcGeMatrix3d& to, bool displacement);

}  // namespace atelier
