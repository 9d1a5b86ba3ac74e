// The making of hatches from depth sections.
// A loop runs along the terrain, comes back along the project, and ends on its first point.
#include "module/metres/hachures.h"

#include "module/metres/classeProfondeur.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitGroupes.h"
#include "module/support/reglages/reglages.h"

namespace plv {

namespace {

constexpr Adesk::Int32 kTransparenceParDefaut = 90;
constexpr Adesk::Int16 kCouleurHorsClasses = 7;

// Kept as it is: the setting is named a percentage, but goes unchanged into the alpha byte; drawings look so.
AcCmTransparency transparence() {
  auto& reglage = reglagesModule().transparenceHachures;
  if (reglage.valeur < 0 || reglage.valeur > kTransparenceParDefaut) reglage.changer(kTransparenceParDefaut);
  return AcCmTransparency(static_cast<Adesk::UInt8>(reglage.valeur));
}

AcGePoint2dArray contour(const LineSegArrayData& terrain, const LineSegArrayData& projet) {
  AcGePoint2dArray points;
  for (std::ptrdiff_t i = 0; i < terrain.GetSize(); ++i) points.append(AcGePoint2d(terrain[i].x1, terrain[i].y1));
  points.append(AcGePoint2d(terrain[terrain.GetSize() - 1].x2, terrain[terrain.GetSize() - 1].y2));
  for (std::ptrdiff_t i = projet.GetSize(); i-- > 0;) points.append(AcGePoint2d(projet[i].x2, projet[i].y2));
  points.append(AcGePoint2d(projet[0].x1, projet[0].y1));
  points.append(AcGePoint2d(points.first()));
  return points;
}

Adesk::Int16 couleurDeClasse(Adesk::Int32 numero) {
  const classesProfondeur& liste = listeClasses();
  if (numero < 1 || static_cast<std::size_t>(numero) > liste.size()) return kCouleurHorsClasses;
  return static_cast<Adesk::Int16>(liste[static_cast<std::size_t>(numero - 1)].couleur);
}

void hachurerLigne(const ligneTroncons& ligne, const profilLong& profil, AcDbObjectIdArray& ids) {
  for (const poigneeTroncon& troncon : ligne.troncons) {
    if (troncon->terrain->IsEmpty()) continue;
    const Adesk::Int16 couleur = couleurDeClasse(troncon->terrain->GetAt(0).classe);
    auto hachure = hachurerTroncon(*troncon, couleur, profil.echelleV, xDessin(profil.position.x),
                                   yDessin(profil.position.y), ligne.planComparaison);
    if (!hachure) continue;
    AcDbObjectId id;
    ajouterEspaceObjet(std::move(hachure), &id);
    ids.append(id);
  }
}

}  // namespace

std::unique_ptr<AcDbHatch> hachurerTroncon(const TranconProfilEnlong& troncon, Adesk::Int16 couleur, double echelle,
                                           xDessin x0, yDessin y0, altitudeVraie planComparaison) {
  if (troncon.terrain->IsEmpty() || troncon.projet->IsEmpty()) return nullptr;
  AcGePoint2dArray points = contour(*troncon.terrain, *troncon.projet);
  AcGeDoubleArray fleches;
  for (AcGePoint2d& point : points) {
    point = {x0.valeur + point.x, (point.y - planComparaison.valeur) * echelle + y0.valeur};
    fleches.append(0.0);
  }
  auto hachure = std::make_unique<AcDbHatch>();
  hachure->setNormal(kNormale);
  hachure->setElevation(0.0);
  hachure->setAssociative(false);
  hachure->setPattern(AcDbHatch::kPreDefined, L"SOLID");
  hachure->setHatchStyle(AcDbHatch::kNormal);
  hachure->setColorIndex(static_cast<Adesk::UInt16>(couleur));
  hachure->setTransparency(transparence());
  hachure->appendLoop(AcDbHatch::kExternal, points, fleches);
  hachure->evaluateHatch(false);
  return hachure;
}

void hachurerProfils(const std::vector<poigneeProfil>& profils) {
  for (const poigneeProfil& profil : profils) {
    AcDbObjectIdArray ids;
    for (const ligneTroncons& ligne : profil->lignes) {
      hachurerLigne(ligne, *profil, ids);
      creerGroupe(ids, L"*");
    }
  }
}

}  // namespace plv
