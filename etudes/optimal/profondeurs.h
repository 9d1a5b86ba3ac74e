// How deep a line of straight runs lies under a ground of straight runs: exact, since the depth is straight between two vertices of
// either.
#pragma once
#include <optional>

#include "etudes/base/sommets.h"

namespace etu {

// Where along the profile, and how deep there.
struct mesure {
  plv::distanceProfil distance;
  plv::profondeurFouille profondeur;
};

struct extremes {
  mesure moindre, plusGrande;  // of several equal ones the first
};

// The extremes of the depth from the line's first vertex to its last. Both run to the right; a wall (two vertices at one distance)
// counts on both its sides. Nothing when the line has no length, runs backwards, or leaves the ground by more than
// plv::kToleranceStation.
std::optional<extremes> profondeursExtremes(const listeSommets& terrain, const listeSommets& ligne);

}  // namespace etu
