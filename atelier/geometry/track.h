// The endless line or whole circle that a straight or circular piece lies on, in a plane, and where two of them meet.
// Plane coordinates in drawing units. A place on a track is a distance along the line, or an angle in radians.
#pragma once
#include <vector>

#include "hote/ge.h"

namespace atelier {

struct Track {
  static Track line(const AcGePoint2d& from, const AcGePoint2d& to) { return {from, (to - from).normal(), 0}; }
  static Track circle(const AcGePoint2d& centre, double radius) { return {centre, {}, radius}; }

  AcGePoint2d origin;      // of the places on a line, or the centre
  AcGeVector2d direction;  // of a line, unit
  double radius = 0;       // 0: a line

  bool isRound() const { return radius > 0; }
  double paramOf(const AcGePoint2d& point) const;  // of the nearest place; an angle from -pi to pi
  AcGePoint2d pointAt(double param) const;
  AcGeVector2d along(double param) const;  // unit, towards rising parameters
};

// None for parallel lines and circles of one centre; tracks that touch, within a billionth of a unit, have one meeting.
std::vector<AcGePoint2d> meetings(const Track& a, const Track& b);

// The tracks on both sides at that distance, which must be positive. A circle smaller than the distance still has two:
// the inner one has the distance less the radius as its radius.
std::vector<Track> parallels(const Track& track, double distance);

}  // namespace atelier
