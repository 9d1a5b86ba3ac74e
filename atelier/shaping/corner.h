// Corners of two pieces in a plane, rounded or cut: where the joining arc or line touches each, which parts are kept.
// Plane coordinates in drawing units; nothing here knows entities.
#pragma once
#include <optional>

#include "atelier/geometry/track.h"

namespace atelier {

// One of the two pieces. On a circle high - low is at most 2 pi.
struct CornerSide {
  Track track;
  double low = 0, high = 0;  // places of its ends on the track; infinite at an endless side
  bool whole = false;        // a full circle, which is never cut
  AcGePoint2d pick;          // says which of several corners is meant, and which part stays
};

struct Joint {
  AcGePoint2d point;
  double param = 0;        // its place on the side's track, within half a turn of the side
  bool keepsHigh = false;  // kept: from here to the higher end; else from the lower end to here
};

struct Corner {
  Joint first, second;
  // Bulge of the joining piece, from the first to the second; 0: straight, or no piece when both are the same point.
  double bulge = 0;
  bool joins() const { return first.point.distanceTo(second.point) > 1e-9; }
};

bool areParallel(const CornerSide& a, const CornerSide& b);

// The arc of that radius, half a turn at most, that touches both; of several the one that keeps the picked parts and
// has its ends nearest to the picks. With a radius of 0 the sides end at their meeting. Parallel lines are joined by
// half a circle, whatever the radius, at the end of the first that is nearest to its pick. Nothing when no arc leaves
// a part of both sides.
std::optional<Corner> roundedCorner(const CornerSide& a, const CornerSide& b, double radius);

// The straight cut at those distances from the meeting of the two sides, which must be lines.
std::optional<Corner> cutCorner(const CornerSide& a, const CornerSide& b, double first, double second);

}  // namespace atelier
