// et_tranchees_sols, et_tranchees and et_tranchees_coupes: which grounds trench types ask for, what is dug, laid and filled back, and the
// levels of the trench where it is cut.
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
  repondre([&] { rendreTextes(nomsDesSols(lireRegles(textes))); });
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

void et_tranchees_coupes() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    demandeTranchees d;
    if (!lireDemande(noeud, d)) return;
    const tranchees t = decouper(d.reseau.pose, d.regles, d.sols);
    plv::listeRb liste;
    ouvrir(liste);
    for (const piece& p : t.pieces) {
      const niveaux n = niveauxDe(p, d.regles);
      const bouts surface = n.structure.empty() ? n.haut : n.structure.back();
      ouvrir(liste);
      ajouterTexte(liste, nomOuvrage(t, p.ouvrage));
      liste.ajouter(
          acutBuildList(RTSHORT, t.ouvrages[p.ouvrage].estRegard ? 1 : 0, RTSHORT, static_cast<int>(p.classe), 0));
      ajouterReels(liste, {p.largeur, p.cotes.fruit, p.cotes.hauteurDroite});
      for (const bool fin : {false, true}) {
        ouvrir(liste);
        const auto z = [&](const bouts& hauteur) { return fin ? p.fond.b + hauteur.b : p.fond.a + hauteur.a; };
        ajouterReels(liste,
                     {fin ? p.b : p.a, z(n.haut), z(surface), z(n.enrobage), z(n.lit), fin ? p.fond.b : p.fond.a});
        fermer(liste);
      }
      fermer(liste);
    }
    fermer(liste);
    // A list of one list alone would lose its brackets.
    liste.ajouter(acutBuildList(RTSHORT, static_cast<int>(d.regles.nombreDeClasses()), 0));
    acedRetList(liste.tete());
  });
}

}  // namespace etu
