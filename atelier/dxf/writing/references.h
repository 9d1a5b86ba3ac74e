// Before writing: which objects need their handles written, and which ones list an erased object.
// Reference: DXF reference, "Group code value types" (320-369, 390-399, 480-481, 1005).
#pragma once
#include "atelier/database/objects/imp_database.h"

namespace atelier::dxf {

// Whether a group of this code holds the handle of another object.
bool isReference(int code);

// Marks the objects without a handle in the file that must be written with theirs, and notes them as changed.
// Does nothing for a drawing whose objects all have handles.
void settleHandles(AcDbImpDatabase& database);
// Notes the objects that list an erased one as changed: groups, dictionaries, owners, and members of an erased group.
void settleErased(AcDbImpDatabase& database);
// Whether a group of a list (members, entries, reactors, extension dictionary) points to an erased object.
bool leadsToErased(const AcDbImpDatabase& database, const Group& group);
// Whether the record of this object is written with its handle.
bool writesHandle(const AcDbStub& stub);

}  // namespace atelier::dxf
