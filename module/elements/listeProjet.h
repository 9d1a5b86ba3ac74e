// Project elements: the curves that a profile's support objects list, and the flag that makes them part of the project.
//
// The Xrecord "ELEMS_PROJET_KAVEL" of a support object is a chain of groups 330, one for each element. The curve's
// XDATA "PLV2_DATA" holds the key "ELEMDUPROJET" (1000) and 1 or 0 (1070): 0 is only associated, and stays in the list.
#pragma once
#include "hote/dbents.h"

namespace plv {

inline constexpr const ACHAR* kRecordStatiques = L"ELEMS_STATIQUES_KAVEL";

// The ids of the record, each once.
void lireListeProjet(AcDbObjectId support, AcDbObjectIdArray& liste);
// The ids of all groups 330 to 369, with those that come twice.
void lireListeBrute(AcDbObjectId support, AcDbObjectIdArray& liste);
// Replaces the record by the ids whose object opens.
void ecrireListeProjet(AcDbObjectId support, const AcDbObjectIdArray& liste);
// Drops the ids whose object can't be opened.
void retirerMorts(AcDbObjectIdArray& liste);

// The flag, set to 1 and to 0. Nothing happens to what doesn't open.
void marquerProjet(AcDbObjectId id);
void demarquerProjet(AcDbObjectId id);
// A curve with the flag at 1.
bool estDuProjet(AcDbObjectId id);
bool estCourbe(AcDbObjectId id);

void surligner(AcDbObjectId id, bool allumer);
// Draws on the screen a rectangle around the extents, wider and higher by the factors, in a palette colour. False when
// the entity doesn't open.
bool encadrer(AcDbObjectId id, int couleur, double facteurX, double facteurY);
// A rectangle on the screen.
void tracerCadre(const AcGePoint2d& bas, const AcGePoint2d& haut, int couleur, bool surbrillance);

}  // namespace plv
