// A row of straight and circular pieces, moved sideways.
// Plane coordinates; a positive distance is to the left of the row's direction.
#pragma once
#include <vector>

#include "atelier/database/curves/polyline_vertices.h"

namespace atelier {

// Neighbours are cut or lengthened to where they meet; pieces that would run backwards are left out. Empty when
// nothing is left. Crossings of pieces that are not neighbours are not removed.
std::vector<PolylineVertex> offsetPath(const std::vector<PolylineVertex>& vertices, bool closed, double distance);

}  // namespace atelier
