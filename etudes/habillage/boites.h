// Slanting boxes: what a text along a line covers. A box without height is a stretch of a line.
#pragma once

#include <array>

namespace etu {

struct point2 {
  double x = 0, y = 0;
};

struct boite {
  double x = 0, y = 0;              // of its centre, drawing units
  double largeur = 0, hauteur = 0;  // along its direction and across it
  double angle = 0;                 // of the direction, radians

  std::array<point2, 4> coins() const;
  // Half of what it covers along the axes.
  double demiX() const;
  double demiY() const;
};

// Whether two boxes have more in common than an edge.
bool seTouchent(const boite& a, const boite& b);

}  // namespace etu
