// pl_TraceOptimal: the prompts, the search, and its line in the profile's graphic.
// The line joins no element list: the front-end may see to that.
#include <memory>
#include <utility>

#include "hote/aced.h"
#include "module/optimiseur/KavelOptimizer.h"
#include "module/optimiseur/fonctionsOptimiseur.h"
#include "module/optimiseur/pointsVoisin.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

struct demande {
  AcGePoint3d depart, arrivee;
  double minimum = 0, maximum = 0;  // depths in metres
};

bool choisirProfil(profilLong& profil) {
  ads_name nom;
  ads_point point;
  return acedEntSel(L"\nSelectionnez le profil en long ", nom, point) == RTNORM && profil.lireNom(nom);
}

// False when a prompt ends without a value.
bool demander(demande& d) {
  if (acedGetPoint(nullptr, L"\nPoint de depart :", asDblArray(d.depart)) != RTNORM ||
      acedGetPoint(asDblArray(d.depart), L"\nPoint d'arrivee :", asDblArray(d.arrivee)) != RTNORM ||
      acedGetDist(nullptr, L"\nProfondeur minimale (nombre negatif pris comme surelevation) :", &d.minimum) != RTNORM ||
      acedGetDist(nullptr, L"\nProfondeur Maximale (nombre negatif pris comme surelevation) :", &d.maximum) != RTNORM)
    return false;
  if (d.minimum > d.maximum) std::swap(d.minimum, d.maximum);
  return true;
}

// A point on a change of section has no altitude of its own: the section that ends there serves.
AcGePoint2d pointRecherche(const profilLong& profil, const AcGePoint3d& point) {
  const xDessin x(point.x);
  altitudeVraie z = profil.altitudeDeY(yDessin(point.y), profil.altitudeSection(profil.indexPc(x)));
  profil.altitudeDePoint(point, z, true);
  return {profil.distanceDe(x).valeur, z.valeur};
}

// Kept as it is: the first plane serves for every vertex, whatever the section.
void dessinerChaine(const profilLong& profil, const chaineTrace& chaine) {
  const altitudeVraie pc = profil.altitudeSection(0);
  auto polyligne = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(chaine.size()));
  unsigned int i = 0;
  for (const AcGePoint2d& point : chaine)
    polyligne->addVertexAt(i++,
                           {profil.xDe(distanceProfil(point.x)).valeur, profil.yDe(altitudeVraie(point.y), pc).valeur});
  ajouterEspaceObjet(std::move(polyligne));
}

}  // namespace

void pl_TraceOptimal() {
  profilLong profil;
  if (!choisirProfil(profil)) {
    acedRetNil();
    return;
  }
  demande d;
  if (!demander(d)) return;
  pointsTerrain terrain;
  if (!lirePointsProfils(profil.id, terrain)) profil.pointsTn(terrain);
  chaineTrace chaine;
  KavelOptimizer(d.minimum, d.maximum)
      .optimiser(terrain, pointRecherche(profil, d.depart), pointRecherche(profil, d.arrivee), chaine);
  dessinerChaine(profil, chaine);
}

}  // namespace plv
