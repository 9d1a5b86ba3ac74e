// The depth of a line of straight runs under a ground of straight runs.
// It is exact, since the depth changes linearly between two vertices of either.
#pragma once
#include <optional>

#include "etudes/base/sommets.h"

namespace etu {

// A distance along the profile, and the depth there.
struct mesure {
  plv::distanceProfil distance;
  plv::profondeurFouille profondeur;
};

struct extremes {
  mesure moindre, plusGrande;  // of several equal ones the first
};

// The extremes of the depth from the line's first vertex to its last, in drawing units. Both lines must run to the right;
// of a wall (two vertices at one distance) both sides count. Nothing when the line has no length, runs backwards, or
// extends beyond the ground by more than plv::kToleranceStation.
std::optional<extremes> profondeursExtremes(const listeSommets& terrain, const listeSommets& ligne);

}  // namespace etu
