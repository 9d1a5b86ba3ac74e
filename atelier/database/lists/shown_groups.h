// An object's groups as lists show them: what the drawing leaves out stands there with its default.
// Reference: AutoLISP function entget; DXF reference, chapters "TABLES" and "ENTITIES".
#pragma once
#include "atelier/database/lists/group_list.h"
#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Groups of the record up to its XDATA, angles in degrees. Added in their places: fields with a default, the layout of an
// entity, widths and bulges of a light polyline's vertices, knots and control points of a spline given by fit points, what
// a dimension measures. The record itself is unchanged.
GroupList shownGroups(AcDbStub& stub);

}  // namespace atelier
