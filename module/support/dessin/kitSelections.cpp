// Selections of entities, by class, by XDATA, and by the user's pick.
// Filters are chains of the host's selection filter: -4 holds an operator.
#include "module/support/dessin/kitSelections.h"

#include "hote/acdb.h"
#include "hote/aced.h"
#include "hote/acut.h"
#include "hote/dbpl.h"
#include "module/commande/arguments/listeRb.h"

namespace plv {

namespace {

constexpr int kOperateur = -4, kXData = -3, kApplication = 1001;
constexpr double kLongueurNulle = 1e-8;

bool selectionner(const resbuf* filtre, ads_name ss, bool interactif) {
  if (!interactif) return acedSSGet(L"X", nullptr, nullptr, filtre, ss) == RTNORM;
  acutPrintf(L"\nSelectionnez :");
  return acedSSGet(nullptr, nullptr, nullptr, filtre, ss) == RTNORM;
}

bool aUneLongueur(const AcDbPolyline& polyligne) {
  double fin = 0, longueur = 0;
  return polyligne.getEndParam(fin) == Acad::eOk && polyligne.getDistAtParam(fin, longueur) == Acad::eOk &&
         longueur >= kLongueurNulle;
}

bool estPolyligneConforme(AcDbObjectId id) {
  AcDbObjectPointer<AcDbPolyline> polyligne(id);
  if (polyligne.openStatus() != Acad::eOk) {
    acutPrintf(L"\nCe n'est pas une polyline !");
    return false;
  }
  if (aUneLongueur(*polyligne)) return true;
  acutPrintf(L"\nPolyline non conforme !");
  return false;
}

}  // namespace

bool selectionParClasses(std::span<const ACHAR* const> classes, int code, ads_name ss, bool interactif) {
  listeRb filtre;
  filtre.ajouter(acutBuildList(kOperateur, L"<OR", RTNONE));
  for (const ACHAR* classe : classes) filtre.ajouter(acutBuildList(code == 0 ? RTDXF0 : code, classe, RTNONE));
  filtre.ajouter(acutBuildList(kOperateur, L"OR>", RTNONE));
  return selectionner(filtre.tete(), ss, interactif);
}

bool selectionParClasse(const ACHAR* classe, int code, ads_name ss, bool interactif) {
  return selectionParClasses(std::span(&classe, 1), code, ss, interactif);
}

bool selectionParXData(const ACHAR* application, ads_name ss, bool interactif) {
  listeRb filtre(acutNewRb(kXData));
  filtre.ajouter(acutBuildList(kApplication, application, RTNONE));
  return selectionner(filtre.tete(), ss, interactif);
}

void idsDeSelection(ads_name ss, AcDbObjectIdArray& liste) {
  Adesk::Int32 nombre = 0;
  acedSSLength(ss, &nombre);
  for (Adesk::Int32 i = 0; i < nombre; ++i) {
    ads_name nom;
    AcDbObjectId id;
    if (acedSSName(ss, i, nom) == RTNORM && acdbGetObjectId(id, nom) == Acad::eOk) liste.append(id);
  }
  acedSSFree(ss);
}

bool choisirEntite(const ACHAR* prompt, AcDbObjectId& id, AcGePoint3d* point) {
  ads_name nom;
  AcGePoint3d pris;
  if (acedEntSel(prompt, nom, asDblArray(pris)) != RTNORM || acdbGetObjectId(id, nom) != Acad::eOk) {
    acutPrintf(L"***  Aucune sélection !");
    return false;
  }
  if (point) *point = pris;
  return true;
}

bool choisirPolyligne(AcGePoint3d* point, AcDbObjectId* id, const ACHAR* prompt) {
  ads_name nom;
  AcGePoint3d pris;
  AcDbObjectId choisie;
  if (acedEntSel(prompt, nom, asDblArray(pris)) != RTNORM || acdbGetObjectId(choisie, nom) != Acad::eOk ||
      !estPolyligneConforme(choisie))
    return false;
  if (point) *point = pris;
  if (id) *id = choisie;
  return true;
}

}  // namespace plv
