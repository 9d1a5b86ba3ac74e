// The ground of a profile as a sibling module has it.
// The sibling is used when it is already loaded; it is never loaded from here.
#pragma once
#include "hote/adesk.h"
#include "hote/ge.h"

namespace plv {

// Empties the list and fills it with the points (abscissa, altitude) of that profile, by its "ID". False, with the
// list left alone, when there is no sibling or it doesn't know the profile; false for a list without a point.
bool lirePointsProfils(Adesk::Int32 idProfil, AcGePoint2dArray& terrain);

}  // namespace plv
