// segmentOptimum: the straight line of one run of a trace, and its ordinate at an abscissa.
// Abscissas and altitudes in drawing units and metres, as the search has them.
#pragma once
#include <cmath>

#include "hote/ge.h"

namespace plv {

// The ends in the order of their abscissas.
struct segmentOptimum {
  double x1, y1, x2, y2;

  segmentOptimum(AcGePoint2d a, AcGePoint2d b)
      : x1(a.x > b.x ? b.x : a.x), y1(a.x > b.x ? b.y : a.y), x2(a.x > b.x ? a.x : b.x), y2(a.x > b.x ? a.y : b.y) {}

  // False for an upright segment, which has no ordinate. Outside its ends the segment is prolonged, unless it is asked
  // for bounded.
  bool ordonneeSur(double x, double& y, bool borne = false) const {
    constexpr double kVertical = 1e-8, kRapportMin = -1e-12, kRapportMax = 1.000000000001;
    if (std::abs(x2 - x1) < kVertical) return false;
    const double rapport = (x - x1) / (x2 - x1);
    if (borne && (rapport < kRapportMin || rapport > kRapportMax)) return false;
    y = (y2 - y1) * rapport + y1;
    return true;
  }
};

}  // namespace plv
