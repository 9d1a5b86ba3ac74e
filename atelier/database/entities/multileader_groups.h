// The nested data of a MULTILEADER: which of its groups are points, directions and lengths.
// Inner header of the room.
#pragma once
#include "atelier/database/entities/carried_rules.h"
#include "atelier/database/records/record.h"
#include "hote/ge.h"

namespace atelier {

// Where a group of a multileader stands: braces in texts open and close its parts.
enum class MultileaderPlace { entity, context, leader, line };
// The place of the groups after this one.
MultileaderPlace multileaderPlace(MultileaderPlace before, const Group& group);

// Transforms the groups of the entity's section. Scale: of lengths; turn: radians, in the plane of the texts.
void transformMultileader(Record& record, const AcGeMatrix3d& matrix, double scale, double turn);

}  // namespace atelier
