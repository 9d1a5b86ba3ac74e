// From the entities of a profile to its quantities.
// Curves become straight pieces in profile coordinates, each clipped to the section, from PC to PC, of its middle.
#include "module/metres/calculMetres.h"

#include <algorithm>

#include "module/metres/elementsMesures.h"
#include "module/support/courbes/kitCourbes.h"

namespace plv {

namespace {

constexpr double kToleranceSegments = 1e-8;
constexpr double kSansLongueur = 1e-8;
constexpr double kSansLimite = 1e99;

// False for an entity that doesn't open as a curve or has no piece.
bool lireSegments(AcDbObjectId id, AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  AcDbObjectPointer<AcDbCurve> courbe(id);
  if (courbe.openStatus() != Acad::eOk) return false;
  segmentsCourbe(*courbe, debuts, fins, kToleranceSegments);
  return !debuts.isEmpty();
}

// Ascending stations. A curve of one piece has one start only, which says nothing of its direction: its ends do.
bool estARebours(const AcGePoint2dArray& debuts, const AcGePoint2dArray& fins) {
  return debuts.first().x > (debuts.length() == 1 ? fins : debuts).last().x;
}

// Appends the pieces to the line, and gives the altitude of the reference plane they were drawn from.
altitudeVraie enCoordonneesProfil(AcGePoint2dArray& debuts, AcGePoint2dArray& fins, const profilLong& profil,
                                  LineSegArrayData& ligne) {
  const bool rebours = estARebours(debuts, fins);
  if (rebours) {
    debuts.reverse();
    fins.reverse();
  }
  for (int i = 0; i < debuts.length(); ++i) {
    const AcGePoint2d &de = rebours ? fins[i] : debuts[i], &a = rebours ? debuts[i] : fins[i];
    if (std::abs(a.x - de.x) < kSansLongueur && std::abs(a.y - de.y) < kSansLongueur) continue;
    ligne.Add({de.x - profil.position.x, de.y - profil.position.y, a.x - profil.position.x, a.y - profil.position.y});
  }
  const std::size_t k = profil.indexPc(xDessin((debuts.first().x + fins.last().x) / 2));
  const altitudeVraie pc = profil.altitudeSection(k);
  const distanceProfil debut(k < profil.distPc.size() ? profil.distPc[k] : 0.0);
  const distanceProfil fin(k + 1 < profil.distPc.size() ? profil.distPc[k + 1] : kSansLimite);
  ligne.ajuster(debut, fin);
  for (std::ptrdiff_t i = 0; i < ligne.GetSize(); ++i) {
    LineSeg& piece = ligne.GetAt(i);
    piece.y1 = piece.y1 / profil.echelleV + pc.valeur;
    piece.y2 = piece.y2 / profil.echelleV + pc.valeur;
  }
  return pc;
}

// The pieces of all terrain entities, by first station. Of several entities, one whose clipped array is empty can't be
// placed: the guarded look-up raises its failure.
void assemblerTerrain(const profilLong& profil, const AcDbObjectIdArray& ids, LineSegArrayData& terrain) {
  std::vector<poigneeSegments> lignes;
  for (const AcDbObjectId& id : ids) {
    AcGePoint2dArray debuts, fins;
    if (!lireSegments(id, debuts, fins)) continue;
    lignes.emplace_back(new LineSegArrayData);
    enCoordonneesProfil(debuts, fins, profil, *lignes.back());
  }
  std::stable_sort(lignes.begin(), lignes.end(),
                   [](const poigneeSegments& a, const poigneeSegments& b) { return a->GetAt(0).x1 < b->GetAt(0).x1; });
  for (const poigneeSegments& ligne : lignes) terrain.concatener(*ligne);
}

}  // namespace

void calculerMetres(const poigneeProfil& profil, const AcDbObjectIdArray& idsProjet,
                    const AcDbObjectIdArray& idsTerrain, const std::vector<elemsFixesKavel>& groupesElements) {
  LineSegArrayData terrain;
  assemblerTerrain(*profil, idsTerrain, terrain);
  profil->lignes.resize(static_cast<std::size_t>(idsProjet.length()));
  for (int i = 0; i < idsProjet.length(); ++i) {
    AcGePoint2dArray debuts, fins;
    if (!lireSegments(idsProjet[i], debuts, fins)) continue;
    ligneTroncons& entree = profil->lignes[static_cast<std::size_t>(i)];
    LineSegArrayData projet;
    entree.planComparaison = enCoordonneesProfil(debuts, fins, *profil, projet);
    couperEnTroncons(projet, terrain, listeClasses(), entree);
  }
  profil->elements.clear();
  for (const elemsFixesKavel& groupe : groupesElements)
    for (const AcDbObjectId& id : groupe.elements) {
      elementFixeMesure element;
      if (mesurerElement(*profil, id, element)) profil->elements.push_back(std::move(element));
    }
}

}  // namespace plv
