// The options of a cut, one row for each.
#include "etudes/terrain/arguments.h"
#include "etudes/terrain/lectureAxe.h"
#include "etudes/terrain/sources.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

std::vector<axePlan> contoursDe(const resbuf* noeud) {
  std::vector<axePlan> contours;
  for (const AcDbObjectId id : entitesDe(noeud)) {
    const AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk) continue;
    if (axePlan contour = axeDeCourbe(*entite); contour.size() > 2) contours.push_back(std::move(contour));
  }
  return contours;
}

struct genreOption {
  const wchar_t* nom;
  bool (*prendre)(const resbuf* valeur, reglesTerrain& regles);
};

bool positif(const resbuf* noeud, double& valeur) {
  if (!plv::estNombre(noeud) || !(plv::valeurReelle(noeud) >= 0)) return false;
  valeur = plv::valeurReelle(noeud);
  return true;
}

constexpr genreOption kOptions[] = {
    {L"tolerance", [](const resbuf* n, reglesTerrain& r) { return positif(n, r.tolerance); }},
    {L"arete", [](const resbuf* n, reglesTerrain& r) { return positif(n, r.arete); }},
    {L"pres", [](const resbuf* n, reglesTerrain& r) { return positif(n, r.pres); }},
    {L"systeme",
     [](const resbuf* n, reglesTerrain& r) {
       r.systeme = plv::nomDeFichier(plv::valeurTexte(n));
       return plv::estChaine(n);
     }},
    {L"attribut",
     [](const resbuf* n, reglesTerrain& r) {
       r.collecte.attribut = plv::valeurTexte(n);
       return plv::estChaine(n);
     }},
    {L"zero",
     [](const resbuf* n, reglesTerrain& r) {
       r.collecte.zeroCompris = n->restype != RTNIL;
       return true;
     }},
    {L"contour",
     [](const resbuf* n, reglesTerrain& r) {
       r.bornes.contours = contoursDe(n);
       r.collecte.ecartees.append(entitesDe(n));
       return !r.bornes.contours.empty();
     }},
    {L"trous",
     [](const resbuf* n, reglesTerrain& r) {
       r.bornes.trous = contoursDe(n);
       r.collecte.ecartees.append(entitesDe(n));
       return !r.bornes.trous.empty();
     }},
    {L"sauf",
     [](const resbuf* n, reglesTerrain& r) {
       r.collecte.ecartees.append(entitesDe(n));
       return true;
     }},
};

}  // namespace

bool lireRegles(const resbuf* noeud, reglesTerrain& regles) {
  if (!noeud || noeud->restype == RTNIL) return true;
  if (noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype == RTLB; noeud = apresListe(noeud)) {
    if (!plv::estChaine(noeud->rbnext) || !noeud->rbnext->rbnext) return false;
    const std::wstring nom = plv::valeurTexte(noeud->rbnext);
    const auto* option =
        std::find_if(std::begin(kOptions), std::end(kOptions), [&](const genreOption& o) { return nom == o.nom; });
    if (option == std::end(kOptions) || !option->prendre(noeud->rbnext->rbnext, regles)) return false;
  }
  return noeud && noeud->restype == RTLE;
}

}  // namespace etu
