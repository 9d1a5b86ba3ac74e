// Groups of entities.
// A group is found by its name in the drawing's group dictionary; "*" asks for an anonymous one.
#pragma once
#include <string>

#include "hote/dbdict.h"

namespace plv {

// The group of that name with the entities appended, made when it is missing. Null for an empty list, unless
// empty groups are wanted, and when the dictionary can't be opened.
AcDbObjectId creerGroupe(const AcDbObjectIdArray& liste, const std::wstring& nom, bool vide = false);
// Nothing happens when the group doesn't open.
void ajouterAuGroupe(AcDbObjectId groupe, AcDbObjectId id);
void ajouterAuGroupeListe(AcDbObjectId groupe, const AcDbObjectIdArray& liste);

}  // namespace plv
