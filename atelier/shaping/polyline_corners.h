// All corners of a polyline at once, rounded or cut.
// Inner header of the room. Plane coordinates, distances in drawing units.
#pragma once
#include <vector>

#include "atelier/database/curves/polyline_vertices.h"

namespace atelier {

struct CorneredPath {
  std::vector<PolylineVertex> list;
  int made = 0;      // corners that were rounded or cut
  int tooShort = 0;  // corners left as they are, because a segment beside them isn't long enough
};

// Corners between two straight segments get an arc of that radius. An arc between two straight segments that meet when
// lengthened is first replaced by their meeting; with a radius of 0 nothing more is done.
CorneredPath roundedPath(std::vector<PolylineVertex> list, bool closed, double radius);

// Corners between two straight segments are cut off at those distances before and after them.
CorneredPath cutPath(const std::vector<PolylineVertex>& list, bool closed, double before, double after);

}  // namespace atelier
