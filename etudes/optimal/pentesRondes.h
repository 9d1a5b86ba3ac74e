// The fewest straight runs whose slopes are multiples of a step, between places of a net on which that is exact: its stations are
// evenly spread, and its levels differ by what the step of slopes makes from one station to the next; with rounded altitudes the levels
// are these, and the stations the finest parts of the distance that both steps demand which the corridor's size allows.
#pragma once
#include "etudes/optimal/cone.h"

namespace etu {

// Of the lines with the fewest runs that with the greatest area below it. A run to a given end may have another slope, and so may one
// from a given start when altitudes are rounded too; free ends aren't rounded. Nothing when the net has no line, or
// is too fine for the corridor.
std::optional<ligneDroite> ligneAPentesRondes(const couloir& c, const exigences& e, std::size_t droitesAttendues);

}  // namespace etu
