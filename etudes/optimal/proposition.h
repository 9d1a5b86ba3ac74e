// A proposed line: from what is asked to the line with the fewest straight runs, with what proves it.
// Below an upright of the ground that leaves no passage the line ends and goes on at another altitude: there are several then.
#pragma once
#include <optional>

#include "etudes/optimal/fenetres.h"

namespace etu {

struct demande {
  double debut, fin;                   // distances
  std::optional<double> zDebut, zFin;  // altitudes of the ends; without them an end is free in the band
  bande profondeurs;
};

struct proposition {
  std::vector<parcours> parties;  // the lines, from left to right, and their windows
  double aire, aireMoindre;       // between ground and lines, and no line in the band has less
};

// The corridor of what is asked. Nothing when the ground runs backwards, doesn't reach from end to end, or an end lies outside
// the band.
std::optional<couloir> couloirDe(const listeSommets& terrain, const demande& d);

std::optional<proposition> proposer(const listeSommets& terrain, const demande& d);

}  // namespace etu
