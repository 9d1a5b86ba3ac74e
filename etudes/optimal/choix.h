// Of the lines with the fewest straight runs, one with little excavation: the area between ground and line is made small.
// The number of runs is proven, the area isn't: it is the best of a dynamic program over places for the vertices, which are
// then moved by ever smaller steps, all of them at once.
#pragma once
#include "etudes/optimal/cone.h"
#include "etudes/optimal/fenetres.h"

namespace etu {

// From the search through the corridor from the left, and that through the corridor reversed; lines that are known may have more
// runs than these. Nothing when no line with so many runs is found; with the least number and simple requirements there always is one.
std::optional<ligneDroite> moindreFouille(const couloir& c, const parcours& aller, const parcours& retour,
                                          std::size_t droites, const exigences& e, const ligneDroite& connue = {});

// The area below a line, above the altitude 0.
double aireSous(const ligneDroite& ligne);

}  // namespace etu
