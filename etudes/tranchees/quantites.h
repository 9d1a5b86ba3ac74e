// The sums of the pieces, by pipe and manhole: what is dug is bedding, surround, pipe, manhole, fills and surface together.
// Conventions: pipes end at the outer wall of a manhole, on its axis; what a pipe has in a pit counts with the pit. A manhole is upright and
// round; which of the layers it passes through is seen on its axis. Reused fill comes from the first layer of the ground.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "etudes/tranchees/decoupe.h"

namespace etu {

// Names of fills and surface layers of all types and surfaces, each once.
struct matieres {
  std::vector<couche> remblais;
  std::vector<std::wstring> structures;
  std::size_t rangRemblai(const std::wstring& nom) const;
  std::size_t rangStructure(const std::wstring& nom) const;
};
matieres matieresDe(const reglesTranchees& regles);

struct sommes {
  double enPlan = 0, enPente = 0, posee = 0;  // of pipes: between axes, along the slope, between outer walls
  double fouille = 0, lit = 0, enrobage = 0, tuyau = 0, regard = 0;
  std::vector<double> sols, remblais, structures, surfaces;  // surfaces: m2 by surface
  std::vector<double> parProfondeur, parCouche;              // m3 by depth class: of the whole depth, and of the layer
  double blindage = 0, reemploi = 0, evacue = 0, foisonne = 0;  // m2, m3; carried away solid and loose
  double profondeurMin = 0, profondeurMax = 0;

  void ajouter(const sommes& autre);
  double remblaisEtSurface() const;
  // 0 but for rounding.
  double ecart() const;
};

struct quantites {
  matieres noms;
  std::vector<sommes> parOuvrage;    // as tranchees::ouvrages
  std::vector<double> hauteurCorps;  // of each work that is a manhole: of its body in the ground
  sommes total;
};

// Throws `refus` for a pit that doesn't hold what is to be in it.
quantites mesurer(const tranchees& t);

// What is told of a work, in the order of reports and sheets.
struct colonne {
  std::wstring titre, unite;
  std::function<double(const sommes&)> valeur;
};
std::vector<colonne> colonnesDe(const reglesTranchees& regles, const matieres& noms);

std::wstring nomOuvrage(const tranchees& t, std::size_t i);
std::wstring nomClasse(const reglesTranchees& regles, std::size_t classe);

// The part of a manhole's body between two heights over the bottom of its pit, both on its axis.
struct corpsRegard {
  double aire, bas, haut;
  double entre(double dessous, double dessus) const;
};
corpsRegard corpsDe(const tranchees& t, const ouvrage& o, const piece& surLAxe);
// The piece of a manhole's pit on its axis, and a level there.
const piece& pieceDeLAxe(const tranchees& t, std::size_t ouvrage);
double surLAxe(const tranchees& t, const piece& p, const bouts& niveau);
// m3 of pipe in the pit of a manhole.
double tuyauxDansLaFosse(const tranchees& t, const ouvrage& o);

}  // namespace etu
