// The volume below a level goes with its height and, above the upright part, with the square: both are integrated exactly.
#include "etudes/tranchees/coupe.h"

#include <algorithm>
#include <cmath>

namespace etu {

namespace {

bouts moins(const bouts& niveau, double epaisseur, const bouts& auMoins) {
  return {std::max(niveau.a - epaisseur, auMoins.a), std::max(niveau.b - epaisseur, auMoins.b)};
}

bouts auPlus(double hauteur, const bouts& haut) { return {std::min(hauteur, haut.a), std::min(hauteur, haut.b)}; }

// Integral of the product of two straight lines over a unit length.
double produit(const bouts& u, const bouts& v) { return (2 * u.a * v.a + u.a * v.b + u.b * v.a + 2 * u.b * v.b) / 6; }

bouts auDessus(const bouts& niveau, double hauteur) {
  return {std::max(0.0, niveau.a - hauteur), std::max(0.0, niveau.b - hauteur)};
}

}  // namespace

niveaux niveauxDe(const piece& p, const reglesTranchees& regles) {
  niveaux n;
  const typeTranchee& type = regles.types[p.regle.type];
  n.haut = p.profondeur();
  n.lit = auPlus(p.lit, n.haut);
  n.enrobage = auPlus(p.enrobage, n.haut);
  double sous = 0;
  if (p.regle.revetement)
    for (const couche& c : regles.revetements[*p.regle.revetement].couches)
      n.structure.push_back(moins(n.haut, sous += *c.epaisseur, n.enrobage));
  for (const couche& c : type.remblais)
    n.remblais.push_back(c.epaisseur ? moins(n.haut, sous += *c.epaisseur, n.enrobage) : n.enrobage);
  bouts dessus = n.haut;
  for (const bouts& z : p.altitudesSols) {
    const bouts hauteur{z.a - p.fond.a, z.b - p.fond.b};
    dessus = {std::clamp(hauteur.a, 0.0, dessus.a), std::clamp(hauteur.b, 0.0, dessus.b)};
    n.sols.push_back(dessus);
  }
  for (const double limite : regles.classes) n.classes.push_back(moins(n.haut, limite, {0, 0}));
  return n;
}

double volumeSous(const piece& p, const bouts& niveau) {
  double aire = p.largeur * (niveau.a + niveau.b) / 2;
  if (p.cotes.fruit > 0) {
    const bouts penche = auDessus(niveau, p.cotes.hauteurDroite);
    aire += p.cotes.fruit * produit(penche, penche);
  }
  return p.longueur() * aire;
}

double volumeEntre(const piece& p, const bouts& haut, const bouts& bas) {
  return volumeSous(p, haut) - volumeSous(p, bas);
}

double surfaceDuHaut(const piece& p) {
  const bouts penche = auDessus(p.profondeur(), p.cotes.hauteurDroite);
  return p.longueur() * (p.largeur + p.cotes.fruit * (penche.a + penche.b));
}

double faces(const piece& p) { return 2 * p.longueur() * p.profondeurMoyenne(); }

double arrondi(double metres) { return std::round(metres * 1e9) / 1e9; }

std::optional<double> largeurDe(const typeTranchee& t, double base, double profondeur) {
  if (t.parProfondeur.empty()) return base;
  const auto trouve = std::ranges::find_if(t.parProfondeur, [&](const palier& p) { return p.contient(profondeur); });
  if (trouve == t.parProfondeur.end()) return {};
  return std::max(base, trouve->valeur);
}

std::optional<double> supplementDe(const typeTranchee& t, double interieur) {
  if (t.parDiametre.empty()) return 0.0;
  const auto trouve =
      std::ranges::find_if(t.parDiametre, [&](const palier& p) { return p.contient(interieur - 1e-9); });
  if (trouve == t.parDiametre.end()) return {};
  return trouve->valeur;
}

}  // namespace etu
