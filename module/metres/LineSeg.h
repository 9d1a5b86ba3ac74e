// LineSeg: one straight piece of a line in profile coordinates.
// Abscissas are distances from the profile's origin, in drawing units; ordinates are true altitudes, metres.
#pragma once
#include "hote/adesk.h"

namespace plv {

struct LineSeg {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  Adesk::Int32 classe = 0;  // class number of the section it belongs to; 0 for a piece of a line as it was read

  // The ordinate at x. False, with y untouched, for a piece shorter than 1e-8, and with `verifierBornes` for an x
  // outside it.
  bool YAt(double x, double& y, bool verifierBornes = false) const;
};

// The crossing of two pieces by the host's own intersection, within both of them with `tester`. x and y stay as they
// were when there is none.
bool intersection(const LineSeg& a, const LineSeg& b, double& x, double& y, bool tester);

}  // namespace plv
