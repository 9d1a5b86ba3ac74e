// Moving, turning, scaling and mirroring entities that have no class of their own, and dimensions.
// Reference: DXF reference, chapter "ENTITIES".
#pragma once
#include "atelier/database/objects/imp_object.h"

namespace atelier {

// Whether transformBy can bring the entity along: false for solid models and types that nobody knows here, and for
// changes that the type's data can't express.
bool canTransform(const AcDbEntity& entity, const AcGeMatrix3d& matrix);

// What AcDbEntity::transformBy does for entities without a rule of their class. eNotApplicable, and nothing is changed,
// when canTransform is false; eNotOpenForWrite.
Acad::ErrorStatus transformCarried(AcDbEntity& entity, const AcGeMatrix3d& matrix);

}  // namespace atelier
