// What an axis meets: lines that cross it, blocks and texts near it, by name and distance along it.
#pragma once
#include <string>
#include <vector>

#include "etudes/surfaces/axe.h"
#include "hote/dbents.h"

namespace etu {

struct rencontre {
  double distance = 0;
  std::wstring nom;
};

// A line has the name of its layer; a block that of its first attribute with a text, or its own; a text its own text. Blocks and texts
// count within a distance of the axis, at the foot of their perpendicular. In the order along the axis.
std::vector<rencontre> rencontresDe(const std::vector<piedAxe>& pieds, const AcDbObjectIdArray& ids, double distance);

}  // namespace etu
