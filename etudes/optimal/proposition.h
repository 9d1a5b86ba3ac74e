// A proposed line: from what is asked to the line with the fewest straight runs, with what proves it; or why there is none.
// Below an upright of the ground that leaves no passage the line ends and goes on at another altitude: there are several then.
#pragma once
#include <optional>

#include "etudes/optimal/contraintes.h"
#include "etudes/optimal/fenetres.h"

namespace etu {

// Two limits that no line passes both. Between them also the slopes count, when they are apart.
struct impossible {
  limiteNommee basse, haute;
  double manque;  // metres
};

struct proposition {
  std::vector<parcours> parties;     // the lines, from left to right, and their windows
  double aire = 0, aireMoindre = 0;  // between ground and lines, and no line in the band has less
  bool prouve = true;  // the number of runs is the least for all that is asked, rounding and lengths as well
  std::optional<impossible> pourquoi;  // the lines leave the limits then, by half of what lacks and a little at most
};

// Nothing for what doesn't make sense in itself (convient), or when no line was found that is rounded and long enough.
std::optional<proposition> proposer(const listeSommets& terrain, const demande& d);

// The corridor that the proposed line runs through.
std::optional<couloir> couloirPropose(const listeSommets& terrain, const demande& d);

}  // namespace etu
