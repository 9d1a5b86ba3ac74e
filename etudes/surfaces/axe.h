// An axis in plan: vertices with bulges as a light polyline has them, and altitudes where the axis lies in space.
// Curves of other kinds are brought into this form by whoever reads them.
#pragma once
#include <optional>
#include <vector>

#include "etudes/surfaces/point.h"

namespace etu {

struct sommetAxe {
  double x = 0, y = 0, z = 0;
  double bulbe = 0;  // of the segment that begins here: the tangent of a quarter of its angle, positive to the left
};
using axePlan = std::vector<sommetAxe>;

// A place on the axis; its station is the distance along the axis from its first vertex.
struct piedAxe {
  double station = 0, x = 0, y = 0, z = 0;
};

// Chords of arcs stay this close to their arcs.
inline constexpr double kFlecheAxe = 1e-4;

double longueur(const axePlan& axe);
etendue etendueDe(const axePlan& axe);
axePlan inverse(const axePlan& axe);

// The axis from a distance on; the whole of it for 0.
axePlan depuis(const axePlan& axe, double distance);

// The axis as chords: its vertices, and places on its arcs. Segments without length are left out.
std::vector<piedAxe> cordes(const axePlan& axe, double fleche = kFlecheAxe);

// The first place where an axis meets itself, other than end to start.
std::optional<piedAxe> croisementPropre(const std::vector<piedAxe>& pieds);

}  // namespace etu
