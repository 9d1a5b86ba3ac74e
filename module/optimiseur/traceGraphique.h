// The lines that a search leaves in the drawing while it runs, to be reviewed after it.
// They stand in model space at the search's own coordinates, abscissa and altitude, not in the profile's graphic.
#pragma once
#include <deque>

#include "hote/ge.h"

namespace plv {

using chaineTrace = std::deque<AcGePoint2d>;

// A search begins: its chains are raised from 1 again. The colours of segments go on between searches.
void recommencerTrace();
// The chain found so far, when it has more than two points: a polyline, each one a unit above the last.
void tracerChaine(const chaineTrace& chaine);
// The segment that is tried now, in the next colour index; past the palette it is drawn in the layer's colour.
void tracerSegment(AcGePoint2d a, AcGePoint2d b);

}  // namespace plv
