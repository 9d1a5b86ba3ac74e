// What entities show that are made of other things: leaders, multilines, meshes, solids, dimensions without a block.
// Plots, extents, picking and EXPLODE ask here, so that they agree.
#pragma once
#include <functional>

#include "atelier/database/objects/imp_database.h"
#include "hote/dbents.h"

namespace atelier {

// Whether entities of that type are shown by parts.
bool hasParts(std::string_view type);

// Gives each part: a record of a simple type (line, arc, area, text, reference) in world coordinates, on layer 0, with
// colours by block where it looks as the entity. The result says in French what is missing, or is empty.
std::string eachPart(AcDbImpDatabase& database, const Record& entity,
                     const std::function<void(const Record&)>& receive);

// The same as entities, which stand in no block and are good during the call only.
void eachPartEntity(const AcDbEntity& entity, const std::function<void(const AcDbEntity&)>& receive);

}  // namespace atelier
