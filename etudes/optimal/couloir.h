// A corridor: what a line has to keep to along a profile, between a lower and an upper limit of straight runs.
// It is kept as doors, a door at each place where one of the limits bends; distances and altitudes are metres.
#pragma once
#include <cstddef>
#include <vector>

#include "etudes/base/sommets.h"

namespace etu {

inline constexpr double kToleranceCouloir = 1e-9;  // metres of altitude: what rounding costs a line

struct pointLigne {
  double distance, altitude;
};
using ligneDroite = std::vector<pointLigne>;

struct limites {
  double bas, haut;
  double hauteur() const { return haut - bas; }
};
limites communes(const limites& a, const limites& b);

// At a step of the limits the door is what the sides have in common, or less: a fixed point is a narrow door.
struct porte {
  double distance;
  limites passage;
};
struct marche {
  std::size_t rang;  // of its door
  limites avant, apres;
  bool mur;  // an upright of the ground, where a line may end and go on at another altitude
};

struct couloir {
  std::vector<porte> portes;    // to the right
  std::vector<marche> marches;  // to the right

  // The limits just before and just after a door.
  limites avant(std::size_t rang) const;
  limites apres(std::size_t rang) const;
  // The limits at a distance between the doors `rang` and `rang` + 1.
  limites entre(std::size_t rang, double distance) const;
  // The last door that isn't right of this distance.
  std::size_t rangDe(double distance) const;
  double debut() const { return portes.front().distance; }
  double fin() const { return portes.back().distance; }

  // Narrowing. A door is added where there is none, a step where the limits become one.
  std::size_t couper(double distance);                                // the rank of a door at that distance
  void remplacer(const couloir& piece);                               // its limits between its ends
  void borner(double debut, double fin, double altitude, bool haut);  // an upper or a lower limit between two distances
  void percer(double distance, const limites& l);                     // a door there that leaves only this
  void fixer(double distance, double altitude);                       // a door there of no height, wherever it was

 private:
  const marche* marcheDe(std::size_t rang) const;
  marche& marcheEn(std::size_t rang);
};

// The depths that are allowed, in metres; negative above the ground.
struct bande {
  double moindre, plusGrande;
};

// The corridor of a band under the ground, between two distances within the ground. Points nearer to one another than the
// tolerance of distances are an upright.
couloir couloirSous(const listeSommets& terrain, double debut, double fin, const bande& profondeurs);

// The corridor from right to left: distances change their sign.
couloir renverse(const couloir& c);

// The corridor in parts, cut where an upright of the ground leaves no passage: there a line ends and goes on at another altitude.
std::vector<couloir> parties(const couloir& c);

}  // namespace etu
