// Makers of entities in model space, and layers.
// Model space is "*Model_Space" whichever space is current; coordinates are the world's, in drawing units.
#pragma once
#include <memory>
#include <string>

#include "hote/dbents.h"
#include "hote/dbpl.h"

namespace plv {

inline constexpr Adesk::UInt16 kCouleurDuBloc = 0;
inline constexpr Adesk::UInt16 kCouleurDuCalque = 256;
inline const AcGeVector3d kNormale{0.0, 0.0, 1.0};

// The working database; null when the host has no drawing.
AcDbDatabase* baseCourante();
// The drawing's current text style, null without a drawing.
AcDbObjectId styleCourant();

// Appends a new entity to model space and closes it. At the first failure the error, and the entity is
// destroyed.
Acad::ErrorStatus ajouterEspaceObjet(std::unique_ptr<AcDbEntity> entite, AcDbObjectId* id = nullptr);
// The same; on success the new id joins the list.
Acad::ErrorStatus ajouterEtRetenir(AcDbObjectIdArray& liste, std::unique_ptr<AcDbEntity> entite);

Acad::ErrorStatus dessinerLigne(const AcGePoint3d& p1, const AcGePoint3d& p2, AcDbObjectId* id = nullptr,
                                Adesk::UInt16 couleur = kCouleurDuCalque);
Acad::ErrorStatus dessinerLigneXY(double x1, double y1, double x2, double y2, AcDbObjectId* id = nullptr,
                                  Adesk::UInt16 couleur = kCouleurDuCalque);
// From the base towards the target, without end.
Acad::ErrorStatus dessinerRayon(const AcGePoint3d& base, const AcGePoint3d& cible,
                                Adesk::UInt16 couleur = kCouleurDuCalque);
// Closed, of four corners, turned by the angle (radians) about (x, y), its lower left corner.
Acad::ErrorStatus dessinerRectangle(double x, double y, double largeur, double hauteur, double angle,
                                    AcDbObjectId* id = nullptr, Adesk::UInt16 couleur = kCouleurDuCalque);

// A polyline made in steps: begun with room for n vertices, filled a vertex at a time, taken. There is one at
// a time in the whole module; beginning another drops it.
void debutPolyligne(unsigned int n);
void ajouterSommet(double x, double y);
std::unique_ptr<AcDbPolyline> prendrePolyligne();

// Erases every entity that opens, and empties the list.
void effacerTout(AcDbObjectIdArray& liste);

// The layer of that name (blanks at its ends don't count), made in that colour when it is missing: an
// existing layer stays as it is. In the working database when none is given. Leaves a null id and gives the
// error on failure.
Acad::ErrorStatus creerCalque(const std::wstring& nom, AcDbObjectId& id, Adesk::UInt16 couleur,
                              AcDbDatabase* base = nullptr);

}  // namespace plv
