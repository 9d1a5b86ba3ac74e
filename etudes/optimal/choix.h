// Of the lines with the fewest straight runs, one with little excavation: the area between ground and line is made small.
// The number of runs is proven, the area isn't: it is the best of a dynamic program over places for the vertices, which are
// then moved by ever smaller steps, all of them at once.
#pragma once
#include "etudes/optimal/fenetres.h"

namespace etu {

// The search through the corridor from the left, and that through the corridor reversed. The result has as many runs as both.
ligneDroite moindreFouille(const couloir& c, const parcours& aller, const parcours& retour);

// The area below a line, above the altitude 0.
double aireSous(const ligneDroite& ligne);

}  // namespace etu
