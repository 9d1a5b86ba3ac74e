// What stands under a point of the drawing.
// A pick finds what comes within the pick box, in drawing units.
#pragma once
#include "hote/dbmain.h"

namespace atelier {

class Document;

// The entity of the current space that is nearest to the point within the pick box, the latest drawn one of equals;
// null when there is none. Off and frozen layers are passed over.
AcDbObjectId pickAt(Document& document, const AcGePoint3d& point);
// Half the side of the pick box in drawing units: PICKBOX pixels of a view VIEWSIZE high.
double pickRadius(Document& document);
// Distance in plan from the point to what the entity draws; infinite when it draws nothing.
double distanceTo(const AcDbEntity& entity, const AcGePoint3d& point);

}  // namespace atelier
