// What is to be told of a network: warnings with their station and figure, left to right. Nothing here is refused.
#pragma once
#include <string>
#include <vector>

#include "etudes/reseaux/situer.h"

namespace etu {

struct avis {
  double station;
  std::wstring texte;
};

// gravitaire: water flows by its slope; a network under pressure isn't asked for slopes, velocities and distances.
std::vector<avis> controler(const reseauPose& p, const ligneDroites& terrain, const ligneDroites& ligne,
                            bool gravitaire);

}  // namespace etu
