// Circles that join two straight lines, and the plane geometry they need.
// Plain numbers: angles in radians, the vertical scale already taken out.
#pragma once
#include <array>

#include "hote/ge.h"

namespace plv {

// The crossing of the lines A-B and C-D; the ratios are its places along them, 0 and 1 at their points. False for lines
// that are parallel or nearly, and in bounded mode for a crossing outside one of them.
bool intersectionDroites(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, const AcGePoint2d& d,
                         bool sansBornes, AcGePoint2d& point, std::array<double, 2>& rapports);
// From the direction I-A to I-B, counter-clockwise, 0 to 2 pi.
double angleEntre(const AcGePoint2d& i, const AcGePoint2d& a, const AcGePoint2d& b);

struct raccordement {
  double rayon = 0;
  AcGePoint2d centre;
  double angleDebut = 0, angleFin = 0;  // from the centre to the tangent points; they bound the shorter arc
};
// The larger circle that is tangent to the lines P0-P1 and P2-P3 and passes through P4. False for parallel lines. For a
// P4 outside the angle of the lines the radius is not a number.
bool rayonRaccordant(const std::array<AcGePoint2d, 5>& points, raccordement& resultat);

}  // namespace plv
