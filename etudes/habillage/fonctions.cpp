// et_ecarter and et_placer: labels that don't touch, from AutoLISP.
#include "etudes/habillage/fonctions.h"

#include <optional>

#include "etudes/habillage/placement.h"
#include "etudes/habillage/rangee.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

namespace {

// The lists of a list that begins at this node, which moves behind it: a function reads each from behind its bracket.
template <typename F>
void chaqueListe(const resbuf*& noeud, F lire) {
  if (!noeud) return;
  const bool liste = noeud->restype == RTLB;
  noeud = noeud->rbnext;
  if (!liste) return;  // nil
  while (noeud && noeud->restype != RTLE) lire(noeud);
  if (noeud) noeud = noeud->rbnext;
}

// A list of numbers, or the point that a list of two or three numbers becomes; the node moves behind it.
std::vector<double> lireNombres(const resbuf*& noeud) {
  std::vector<double> nombres;
  if (plv::estPoint(noeud)) {
    const AcGePoint3d p = plv::valeurPoint(noeud);
    nombres = {p.x, p.y, p.z};
  } else if (noeud->restype == RTLB) {
    for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE; noeud = noeud->rbnext)
      if (plv::estNombre(noeud)) nombres.push_back(plv::valeurReelle(noeud));
  }
  if (noeud) noeud = noeud->rbnext;
  return nombres;
}

// (x y width height angle)
std::vector<boite> lireBoites(const resbuf*& noeud) {
  std::vector<boite> boites;
  chaqueListe(noeud, [&](const resbuf*& rb) {
    const std::vector<double> n = lireNombres(rb);
    if (n.size() == 5) boites.push_back({n[0], n[1], n[2], n[3], n[4]});
  });
  return boites;
}

}  // namespace

void et_ecarter() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  std::vector<etiquette> etiquettes;
  chaqueListe(noeud, [&](const resbuf*& rb) {
    const std::vector<double> n = lireNombres(rb);
    if (n.size() >= 2) etiquettes.push_back({n[0], n[1]});
  });
  if (etiquettes.empty() || !plv::estNombre(noeud) || !plv::estNombre(noeud->rbnext)) return;
  const auto places = ecarterEnRangees(etiquettes, plv::valeurReelle(noeud), plv::valeurReelle(noeud->rbnext));
  if (!places) return;
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (const placeEnRangee& p : *places) liste.ajouter(acutBuildList(RTLB, RTLONG, p.rang, RTREAL, p.centre, RTLE, 0));
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

void et_placer() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const std::vector<boite> obstacles = lireBoites(noeud);
  std::vector<std::vector<boite>> etiquettes;
  chaqueListe(noeud, [&](const resbuf*& rb) { etiquettes.push_back(lireBoites(rb)); });
  if (etiquettes.empty()) return;
  plv::listeRb liste;
  for (const int choix : placer(obstacles, etiquettes)) liste.ajouter(acutBuildList(RTLONG, choix, 0));
  acedRetList(liste.tete());
}

}  // namespace etu
