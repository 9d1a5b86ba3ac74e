// et_tranchees_classeur and et_tranchees_articles: the workbook of networks, and the articles of its bill.
#include <deque>
#include <memory>

#include "etudes/tranchees/classeur.h"
#include "etudes/tranchees/demande.h"
#include "etudes/tranchees/fonctions.h"

namespace etu {

namespace {

// Networks with what their trenches refer to.
struct lots {
  std::deque<demandeTranchees> demandes;
  std::vector<lotMesure> mesures;
};

// (name profile rows line rules grounds gravity)
bool lireLot(const resbuf*& noeud, lots& l) {
  if (!noeud || noeud->restype != RTLB) return false;
  noeud = noeud->rbnext;
  std::wstring nom;
  demandeTranchees& d = l.demandes.emplace_back();
  if (!lireTexte(noeud, nom) || !lireDemande(noeud, d)) return false;
  const bool gravitaire = noeud && noeud->restype != RTLE && lireVrai(noeud);
  if (!noeud || noeud->restype != RTLE) return false;
  noeud = noeud->rbnext;
  tranchees t = decouper(d.reseau.pose, d.regles, d.sols);
  quantites q = mesurer(t);
  l.mesures.push_back(
      {nom, std::move(t), std::move(q), controler(d.reseau.pose, d.reseau.terrain, d.reseau.ligne, gravitaire)});
  return true;
}

bool lireLots(const resbuf*& noeud, lots& l) {
  if (!noeud || noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE;)
    if (!lireLot(noeud, l)) return false;
  if (!noeud) return false;
  noeud = noeud->rbnext;
  return !l.mesures.empty();
}

}  // namespace

void et_tranchees_classeur() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    std::wstring chemin;
    lots l;
    rangees tarif;
    enteteClasseur entete;
    if (!lireTexte(noeud, chemin) || !lireLots(noeud, l) || !lireTextes(noeud, tarif) ||
        !lireTexte(noeud, entete.dessin) || !lireTexte(noeud, entete.date))
      return;
    plv::listeRb liste;
    ajouterTextes(liste, ecrireClasseur(chemin, l.mesures, lirePrix(tarif), entete));
    ajouterReels(liste, {l.mesures.front().q.total.fouille});
    acedRetList(liste.tete());
  });
}

void et_tranchees_articles() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    lots l;
    if (!lireLots(noeud, l)) return;
    plv::listeRb liste;
    ouvrir(liste);
    for (const article& a : articlesDe(l.mesures)) {
      ouvrir(liste);
      ajouterTexte(liste, a.designation);
      ajouterTexte(liste, a.unite);
      ajouterReels(liste, {a.total()});
      fermer(liste);
    }
    fermer(liste);
    acedRetList(liste.tete());
  });
}

}  // namespace etu
