// Angles of arcs, in radians.
// Files round them: what goes round once may end a little beyond its start.
#pragma once
#include <cmath>
#include <numbers>

namespace atelier {

// From start to end counter-clockwise, above 0 and at most a turn. Equal angles are a whole one, and so are those of
// which the end goes beyond it by the rounding of a file with six digits.
inline double sweepBetween(double start, double end) {
  constexpr double kTurn = 2 * std::numbers::pi, kRounding = 1e-5;
  const double sweep = std::fmod(end - start, kTurn);
  if (end - start > kTurn && sweep < kRounding) return kTurn;
  return sweep > 0 ? sweep : sweep + kTurn;
}

}  // namespace atelier
