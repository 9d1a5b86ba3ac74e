// Lists of numbers as they come from AutoLISP: two or three numbers with a real among them are a point, four are a list.
#include "etudes/terrain/arguments.h"

#include "hote/acdb.h"

namespace etu {

AcDbObjectIdArray entitesDe(const resbuf* noeud) {
  AcDbObjectIdArray ids;
  if (!noeud) return ids;
  const ads_name nom = {noeud->resval.rlname[0], noeud->resval.rlname[1]};
  AcDbObjectId id;
  if (noeud->restype == RTENAME && acdbGetObjectId(id, nom) == Acad::eOk) ids.append(id);
  Adesk::Int32 nombre = 0;
  if (noeud->restype != RTPICKS || acedSSLength(nom, &nombre) != RTNORM) return ids;
  for (Adesk::Int32 i = 0; i < nombre; ++i) {
    ads_name entite;
    if (acedSSName(nom, i, entite) == RTNORM && acdbGetObjectId(id, entite) == Acad::eOk) ids.append(id);
  }
  return ids;
}

const resbuf* apresListe(const resbuf* noeud) {
  int profondeur = 0;
  for (; noeud; noeud = noeud->rbnext) {
    if (noeud->restype == RTLB) ++profondeur;
    if (noeud->restype == RTLE && --profondeur == 0) return noeud->rbnext;
  }
  return nullptr;
}

bool lireAxe(const resbuf*& noeud, axePlan& axe) {
  if (!noeud || noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype == RTLB;) {
    double v[4];
    noeud = noeud->rbnext;
    for (double& valeur : v) {
      if (!plv::estNombre(noeud)) return false;
      valeur = plv::valeurReelle(noeud);
      if (!std::isfinite(valeur)) return false;
      noeud = noeud->rbnext;
    }
    if (!noeud || noeud->restype != RTLE) return false;
    noeud = noeud->rbnext;
    axe.push_back({v[0], v[1], v[2], v[3]});
  }
  if (!noeud || noeud->restype != RTLE) return false;
  noeud = noeud->rbnext;
  return true;
}

void ajouterAxe(plv::listeRb& liste, const axePlan& axe) {
  liste.ajouter(acutBuildList(RTLB, 0));
  for (const sommetAxe& s : axe)
    liste.ajouter(acutBuildList(RTLB, RTREAL, s.x, RTREAL, s.y, RTREAL, s.z, RTREAL, s.bulbe, RTLE, 0));
  liste.ajouter(acutBuildList(RTLE, 0));
}

}  // namespace etu
