// Depth sections drawn as solid, transparent hatches between the two lines, in the colour of their class.
// Nothing records what was drawn: hatching again draws everything once more.
#pragma once
#include <memory>

#include "module/metres/TranconProfilEnlong.h"

namespace plv {

// One hatch that is in no drawing yet; nothing for a depth section without terrain or project. x0, y0: insertion of the
// profile's block; echelle: drawing units for a metre of altitude; planComparaison: altitude at y0. Throws what a
// setting throws when a transparency out of range can't be put right in its file.
std::unique_ptr<AcDbHatch> hachurerTroncon(const TranconProfilEnlong& troncon, Adesk::Int16 couleur, double echelle,
                                           xDessin x0, yDessin y0, altitudeVraie planComparaison);

// Hatches every depth section, on the current layer. Kept as it is: after each line of a profile an anonymous group is
// made of all hatches of this profile so far, those of the lines before included.
void hachurerProfils(const std::vector<poigneeProfil>& profils);

}  // namespace plv
