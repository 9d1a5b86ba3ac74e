// Selections of entities, by class, by XDATA, and by the user's pick.
// Only the choosers speak to the user.
#pragma once
#include <span>

#include "hote/adesk.h"
#include "hote/dbents.h"

namespace plv {

// A selection set of the entities of any of these classes, compared in the given group (0 the DXF name, 100 a
// class marker): of the whole drawing, or picked by the user. True when there is one; the caller frees it.
bool selectionParClasses(std::span<const ACHAR* const> classes, int code, ads_name ss, bool interactif = false);
bool selectionParClasse(const ACHAR* classe, int code, ads_name ss, bool interactif = false);
// Of the entities that carry the application's XDATA.
bool selectionParXData(const ACHAR* application, ads_name ss, bool interactif = false);
// Appends the ids of the members, and frees the selection.
void idsDeSelection(ads_name ss, AcDbObjectIdArray& liste);

// One entity picked by the user, and the point of the pick (user coordinates). False, and a message, without
// a pick.
bool choisirEntite(const ACHAR* prompt, AcDbObjectId& id, AcGePoint3d* point = nullptr);
// One lightweight polyline with a length. False, with a message where the pick is another entity or has none.
bool choisirPolyligne(AcGePoint3d* point, AcDbObjectId* id, const ACHAR* prompt);

}  // namespace plv
