// Ground from the axis itself, where it has altitudes, and from points that stand near it.
#pragma once
#include <optional>

#include "etudes/surfaces/coupe.h"

namespace etu {

// The axis's own altitudes; 0 at both ends of a chord is none.
class coupeAxe : public surfaceCoupable {
 public:
  void couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) override {
    if (a.z != 0 || b.z != 0) tranches.push_back({0, a.z, 1, b.z});
  }
  etendue emprise() const override { return {}; }
};

// The points within a distance of the axis, each at the foot of its perpendicular on the nearest chord, in order; those before its
// start and behind its end have none. Of two at one station the nearer one is taken. Empty for fewer than two.
morceau profilDesPoints(const std::vector<piedAxe>& pieds, const std::vector<point3>& points, double distance);

// The station of the foot of a point's perpendicular, none beyond the distance or the axis's ends.
std::optional<double> piedLePlusProche(const std::vector<piedAxe>& pieds, const point3& point, double distance);

}  // namespace etu
