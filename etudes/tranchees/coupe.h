// The cross section of a piece of trench, within which everything is straight: heights of its levels over the bottom at both ends, and the
// volume below a level. Widths are constant within a piece, sides upright or leaning from a height on.
#pragma once
#include <vector>

#include "etudes/reseaux/lignes.h"
#include "etudes/tranchees/types.h"

namespace etu {

// What is dug for: a pipe between two pits, or the pit of a manhole.
struct ouvrage {
  bool estRegard;
  std::size_t rang;   // of the pipe, or of the manhole
  double debut, fin;  // stations
};

struct piece {
  std::size_t ouvrage;
  double a, b;      // stations
  bouts sol, fond;  // altitudes of the ground and of the bottom
  partie regle;     // its type and surface
  double largeur;
  talus cotes;  // fruit 0 for upright sides
  bool blindee;
  std::size_t classe;                // of the whole depth
  double lit, enrobage;              // heights over the bottom: top of the bedding, of the surround
  std::vector<bouts> altitudesSols;  // top of each further layer of the ground, as it is; below the bottom in a gap

  double longueur() const { return b - a; }
  bouts profondeur() const { return {sol.a - fond.a, sol.b - fond.b}; }
  double profondeurMoyenne() const { return (sol.a - fond.a + sol.b - fond.b) / 2; }
};

// Heights over the bottom at both ends; each lies on or below the one before.
struct niveaux {
  bouts haut;                    // the ground
  std::vector<bouts> structure;  // below each layer of the surface
  std::vector<bouts> remblais;   // below each fill; the last one is the top of the surround
  bouts enrobage, lit;
  std::vector<bouts> sols;     // top of each further layer of the ground
  std::vector<bouts> classes;  // each limit of the depth classes, downwards
};
niveaux niveauxDe(const piece& p, const reglesTranchees& regles);

// m3 below a level that is straight over the piece.
double volumeSous(const piece& p, const bouts& niveau);
double volumeEntre(const piece& p, const bouts& haut, const bouts& bas);
// m2 of the trench's top.
double surfaceDuHaut(const piece& p);
// m2 of both faces.
double faces(const piece& p);

// Depths and widths are compared with limits as rounded to a nanometre: what is written 1.30 is 1.30, however it was reckoned.
double arrondi(double metres);

// The width of a trench so deep, which is at least `base` wide; none where the type has no width for the depth.
std::optional<double> largeurDe(const typeTranchee& t, double base, double profondeur);
// What a pipe of this inner diameter adds to its outer one; none where the type doesn't say.
std::optional<double> supplementDe(const typeTranchee& t, double interieur);

}  // namespace etu
