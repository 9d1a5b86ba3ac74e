// The quantities of one profile: its project lines cut into depth sections.
// Depth is the terrain's altitude minus the project's, metres.
#pragma once
#include "module/elements/elemsFixes.h"
#include "module/metres/TranconProfilEnlong.h"
#include "module/metres/classeProfondeur.h"

namespace plv {

// Fills `lignes`, one entry for each project id, and `elements`. The profile is read already, and the extreme classes
// are in the module's list for the whole call. An entity that doesn't open or has no piece leaves its entry empty. A
// project line that the terrain doesn't reach raises the invalid-argument failure, with the entries before it filled.
void calculerMetres(const poigneeProfil& profil, const AcDbObjectIdArray& idsProjet,
                    const AcDbObjectIdArray& idsTerrain, const std::vector<elemsFixesKavel>& groupesElements);

// The cutting of one project line, appended to its entry. Linear in the pieces and the crossings of class limits.
void couperEnTroncons(const LineSegArrayData& projet, const LineSegArrayData& terrain, const classesProfondeur& liste,
                      ligneTroncons& entree);

}  // namespace plv
