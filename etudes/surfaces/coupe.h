// The profile of a surface along an axis: pieces of points, with gaps between them where there is no surface.
// A surface is asked chord by chord; what it gives is put together here.
#pragma once
#include <span>
#include <vector>

#include "etudes/surfaces/axe.h"
#include "etudes/surfaces/surface.h"

namespace etu {

// A straight run of the ground under a chord; places are parts of the chord, 0 at its start and 1 at its end.
struct tranche {
  double t0 = 0, z0 = 0, t1 = 1, z1 = 0;
};

class surfaceCoupable {
 public:
  virtual ~surfaceCoupable() = default;
  // Appends the ground under the chord from a to b, in any order.
  virtual void couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) = 0;
  virtual etendue emprise() const = 0;
};

struct pointCoupe {
  double station = 0, z = 0;
};
using morceau = std::vector<pointCoupe>;  // stations never go back; two points at one station are a wall

// Runs that are closer than this along the axis, in metres, touch.
inline constexpr double kJoint = 1e-6;

// Where two runs lie over one another with two altitudes, the first one along the axis stands and the place is listed.
std::vector<morceau> couper(surfaceCoupable& surface, const std::vector<piedAxe>& pieds,
                            listeContradictions& contradictions);

// Stretches of stations, and what of the pieces lies in them.
struct intervalle {
  double debut = 0, fin = 0;
};
std::vector<morceau> dansIntervalles(const std::vector<morceau>& morceaux, const std::vector<intervalle>& intervalles);

// Leaves out points so that the line through the others passes within the tolerance of every one that is left out, at its
// station. 0 leaves out none. Linear in the number of points.
morceau alleger(const morceau& points, double tolerance);

}  // namespace etu
