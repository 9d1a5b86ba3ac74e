// Where an IMAGE or a WIPEOUT stands and what part of it is shown.
// Reference: DXF reference, "IMAGE" and "WIPEOUT".
#pragma once
#include <vector>

#include "atelier/database/records/groups.h"

namespace atelier {

struct RasterOutline {
  AcGePoint3d origin;  // the lower left corner
  AcGeVector3d u, v;   // a pixel to the right and upwards
  double columns = 0, rows = 0;
  std::vector<AcGePoint3d> corners;  // of what is shown; of what is hidden when inverted
  bool inverted = false;
  // A place in pixels, from the upper left corner downwards.
  AcGePoint3d at(double x, double y) const { return origin + u * x + v * (rows - y); }
};

RasterOutline rasterOutline(const Record& record);

}  // namespace atelier
