// A place for each label among those that it may have, in the order in which it likes them, so that no label touches another one or
// an obstacle. As many labels as it can find a place for have one.
#pragma once

#include <vector>

#include "etudes/habillage/boites.h"

namespace etu {

// For each label the number of its place, from 0; -1 for one that has none.
std::vector<int> placer(const std::vector<boite>& obstacles, const std::vector<std::vector<boite>>& etiquettes);

}  // namespace etu
