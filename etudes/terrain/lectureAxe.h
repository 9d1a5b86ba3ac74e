// Axes from curves of the drawing: what a curve is in plan, and curves that follow one another as one axis.
#pragma once
#include <vector>

#include "etudes/surfaces/axe.h"
#include "hote/dbents.h"

namespace etu {

// Empty for an entity that isn't a curve, or one without length. Straight runs and arcs in the plan are exact; other curves
// become chords within kFlecheAxe.
axePlan axeDeCourbe(const AcDbEntity& entite);

// The pieces joined end to end, in the direction of the first one; pieces may be given in any order and direction. Throws
// `refus` for pieces that don't follow one another.
axePlan enchainer(std::vector<axePlan> pieces);

}  // namespace etu
