// et_tranchees_sols and et_tranchees: which grounds trench types ask for, and what is dug, laid and filled back.
#include "etudes/tranchees/fonctions.h"

#include "etudes/tranchees/demande.h"
#include "etudes/tranchees/quantites.h"

namespace etu {

namespace {

void ajouterFaits(plv::listeRb& liste, const std::wstring& nom, const sommes& s, const std::vector<colonne>& colonnes) {
  ouvrir(liste);
  ajouterTexte(liste, nom);
  ajouterReels(liste, {s.enPlan, s.enPente, s.posee, s.profondeurMin, s.profondeurMax});
  for (const colonne& c : colonnes) ajouterReels(liste, {c.valeur(s)});
  fermer(liste);
}

}  // namespace

void et_tranchees_sols() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  rangees textes;
  if (!lireTextes(noeud, textes)) return;
  repondre([&] {
    plv::listeRb liste;
    for (const std::wstring& nom : nomsDesSols(lireRegles(textes))) ajouterTexte(liste, nom);
    acedRetList(liste.tete());
  });
}

void et_tranchees() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    demandeTranchees d;
    if (!lireDemande(noeud, d)) return;
    const tranchees t = decouper(d.reseau.pose, d.regles, d.sols);
    const quantites q = mesurer(t);
    const std::vector<colonne> colonnes = colonnesDe(d.regles, q.noms);
    plv::listeRb liste;
    ouvrir(liste);
    for (const colonne& c : colonnes) {
      ouvrir(liste);
      ajouterTexte(liste, c.titre);
      ajouterTexte(liste, c.unite);
      fermer(liste);
    }
    fermer(liste);
    ouvrir(liste);
    for (std::size_t i = 0; i < t.ouvrages.size(); ++i)
      ajouterFaits(liste, nomOuvrage(t, i), q.parOuvrage[i], colonnes);
    fermer(liste);
    ajouterFaits(liste, L"total", q.total, colonnes);
    ajouterReels(liste, {q.total.ecart()});
    acedRetList(liste.tete());
  });
}

}  // namespace etu
