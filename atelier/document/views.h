// The part of the drawing that a screen shows, or would show, and the one stored in a file.
#pragma once
#include "atelier/database/objects/imp_database.h"

namespace atelier {

struct View {
  AcGePoint3d centre;
  double height = 100;  // drawing units
};

constexpr double kExtentsMargin = 1.02;  // of a view of all, in sizes of what it shows

// The view that a drawing opens with.
View activeView(AcDbImpDatabase& database);
// Sets the header's extents and the view of the active viewport to that box; an empty one changes nothing.
void setFirstView(AcDbImpDatabase& database, const AcDbExtents& box);

}  // namespace atelier
