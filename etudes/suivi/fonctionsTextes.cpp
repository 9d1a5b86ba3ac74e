// et_places and et_ecarts: places of texts and what a hand has changed of them, from AutoLISP.
// Lists of entities are lists of their names; a place is (x y checksum). A list of lists is returned with a bracket pair of its own.
#include <algorithm>

#include "etudes/suivi/fonctions.h"
#include "etudes/suivi/places.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

namespace {

// The texts among the entities of a list that begins at this node, which moves behind it; with their numbers in the list.
struct textesLus {
  std::vector<texte> textes;
  std::vector<int> numeros;
};

textesLus lireListe(const resbuf*& noeud) {
  textesLus lus;
  if (!noeud || noeud->restype != RTLB) {
    if (noeud) noeud = noeud->rbnext;  // nil
    return lus;
  }
  int numero = 0;
  for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE; noeud = noeud->rbnext, ++numero) {
    if (!plv::estNom(noeud)) continue;
    if (const auto t = lireTexte(noeud->resval.rlname)) {
      lus.textes.push_back(*t);
      lus.numeros.push_back(numero);
    }
  }
  if (noeud) noeud = noeud->rbnext;
  return lus;
}

std::vector<place> lirePlaces(const resbuf* noeud) {
  std::vector<place> places;
  for (; noeud && noeud->restype != RTLE; noeud = noeud->rbnext)
    if (plv::estPoint(noeud))
      places.push_back({noeud->resval.rpoint[0], noeud->resval.rpoint[1], noeud->resval.rpoint[2]});
  return places;
}

std::vector<double> lireReels(const resbuf* noeud) {
  std::vector<double> reels;
  for (; noeud && noeud->restype != RTLE; noeud = noeud->rbnext) {
    // Two or three numbers reach a function as a point.
    if (plv::estPoint(noeud)) {
      reels.insert(reels.end(), noeud->resval.rpoint, noeud->resval.rpoint + (noeud->restype == RT3DPOINT ? 3 : 2));
    } else if (plv::estNombre(noeud)) {
      reels.push_back(plv::valeurReelle(noeud));
    }
  }
  return reels;
}

}  // namespace

void et_places() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const textesLus lus = lireListe(noeud);
  const std::vector<double> bornes = lireReels(noeud);  // descending
  if (bornes.size() < 2) return;
  std::vector<std::vector<place>> bandes(bornes.size() - 1);
  for (const texte& t : lus.textes) {
    const auto sous = std::upper_bound(bornes.begin(), bornes.end(), t.milieu, std::greater<>());
    if (sous != bornes.begin() && sous != bornes.end())
      bandes[static_cast<std::size_t>(sous - bornes.begin()) - 1].push_back(t.lieu);
  }
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (const auto& bande : bandes) {
    liste.ajouter(acutBuildList(RTLB, 0));
    for (const place& p : bande) liste.ajouter(acutBuildList(RTLB, RTREAL, p.x, RTREAL, p.y, RTREAL, p.mots, RTLE, 0));
    liste.ajouter(acutBuildList(RTLE, 0));
  }
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

void et_ecarts() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const textesLus lus = lireListe(noeud);
  const std::vector<place> places = lirePlaces(noeud && noeud->restype == RTLB ? noeud->rbnext : noeud);
  const std::vector<ecart> trouves = ecarts(lus.textes, places);
  if (trouves.empty()) return;
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (const ecart& e : trouves) {
    const bool reecrit = lus.textes[e.texte].lieu.mots != places[e.place].mots;
    liste.ajouter(acutBuildList(RTLB, RTLONG, lus.numeros[e.texte], RTLONG, static_cast<int>(e.place), RTREAL, e.dx,
                                RTREAL, e.dy, reecrit ? RTT : RTNIL, RTLE, 0));
  }
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

}  // namespace etu
