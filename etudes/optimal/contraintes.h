// What is asked of a proposed line besides the two depths, and the corridor that it leaves.
#pragma once
#include <optional>
#include <vector>

#include "etudes/optimal/couloir.h"
#include "etudes/optimal/pentes.h"

namespace etu {

// Other depths between two distances.
struct troncBande {
  double debut, fin;
  bande profondeurs;
};
// A place that the line passes, at an altitude between two.
struct pointImpose {
  double distance;
  limites altitudes;
};
// What the line passes above or below: from here to there nothing between the two altitudes, which include the clearances.
struct croisement {
  double debut, fin;
  limites interdit;
};

struct demande {
  double debut = 0, fin = 0;           // distances
  std::optional<double> zDebut, zFin;  // altitudes of the ends; without them an end is free in the band
  bande profondeurs{};
  std::vector<troncBande> bandes;
  std::vector<pointImpose> points;
  std::vector<croisement> croisements;
  std::optional<pentes> pente;
  double longueur = 0;     // of a run at least
  double pasAltitude = 0;  // vertices stand at multiples of it; 0 where they like
  double pasPente = 0;     // slopes are multiples of it; 0 where they like
};

// Whether the ground runs to the right and covers what is asked, and what is asked makes sense in itself.
bool convient(const listeSommets& terrain, const demande& d);

// The corridor; for each crossing whether the line passes above it. Where what is asked contradicts itself, doors are shut.
couloir couloirDe(const listeSommets& terrain, const demande& d, const std::vector<bool>& dessus);

// What makes a limit at a distance: the tightest of all.
enum class cause { profondeurMoindre, profondeurPlusGrande, point, croisementDessus, croisementDessous, bout };
struct limiteNommee {
  double distance;
  cause pourquoi;
  double valeur;  // the depth, else the altitude
};
limiteNommee causeDe(const listeSommets& terrain, const demande& d, const std::vector<bool>& dessus, double distance,
                     bool haut);

}  // namespace etu
