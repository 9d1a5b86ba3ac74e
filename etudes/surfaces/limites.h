// Outlines that limit a surface: ground is wanted inside an outer line and outside of holes.
// They limit the axis, so that the ground ends exactly where the axis crosses them.
#pragma once
#include <vector>

#include "etudes/surfaces/coupe.h"

namespace etu {

struct limites {
  std::vector<axePlan> contours, trous;  // closed lines; no outer line: everything

  bool vides() const { return contours.empty() && trous.empty(); }
};

// The stretches of an axis where ground is wanted, in order.
std::vector<intervalle> dansLimites(const limites& l, const std::vector<piedAxe>& pieds);

}  // namespace etu
