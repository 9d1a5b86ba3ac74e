// The two chains that hang from a profile: the PC entities, which cut it into sections with a reference plane
// each, and the lines drawn in each section. A node names the next one by its handle.
//
// A PC is any entity with "PLV2_DATA": DISTANCE (length of its section, metres), PC (altitude of the plane),
// NEXT-PC and PRLI (handles; absent on the last one, and on a section without lines). A line carries NEXTLI
// (handle, absent on the last one). Kept as it is: a PC without altitude leaves distances and planes out of step.
// Chains aren't sorted, and a cycle isn't detected: writers must keep chains whole.
#pragma once
#include <string>

#include "module/profil/profilLong.h"

namespace plv {

// Fills distPc, altPc and idsPc from the PC of that handle on. Ends at a PC that doesn't open; what was read
// stands.
void lirePc(profilLong& profil, const std::wstring& handle);
// The ids of all lines of all PCs, in chain order. The id of a line that doesn't open is kept and ends its
// PC's chain.
void lireLignes(const profilLong& profil, AcDbObjectIdArray& ids);
// False when no object has that handle.
bool handleVersId(const std::wstring& texte, AcDbObjectId& id);

}  // namespace plv
