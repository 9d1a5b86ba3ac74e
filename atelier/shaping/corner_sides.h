// The two objects of a corner: they are expressed in their common plane, and shortened or lengthened to the corner.
// Inner header of the room.
#pragma once
#include <utility>

#include "atelier/document/document.h"
#include "atelier/shaping/corner.h"

namespace atelier {

struct PickedSide {
  AcDbObjectId id;
  CornerSide side;
  bool polyline = false;  // the side is the segment that was picked
  unsigned segment = 0;
  bool runsWithTrack = true;  // the segment, along rising places of its track
  bool closed = false;
};

// A plane with the axes of entities of that normal, at a height over the world's origin.
struct CornerPlane {
  AcGeVector3d normal{0, 0, 1};
  double height = 0;

  AcGePoint3d world(const AcGePoint2d& point) const;
  AcGePoint3d own(const AcGePoint3d& world) const;  // z: over the origin, not over the plane
};

// Throws Error for anything but lines, rays, arcs, circles and polylines, and for objects on locked layers. Polylines
// whose vertices are entities become lightweight ones.
void checkSide(Document& document, const PickedEntity& picked);

struct CornerSides {
  CornerPlane plane;
  PickedSide first, second;
  bool samePolyline() const { return first.polyline && first.id == second.id; }
};
// Throws Error when the two don't lie in one plane, or when they are the same object and it isn't a polyline.
CornerSides cornerSides(Document& document, const PickedEntity& first, const PickedEntity& second);

// Cuts or lengthens the sides to the corner, if `trims`, and draws the joint with the properties of the first. A
// polyline joined with a line, an arc or another polyline becomes one polyline with it. Between two segments of one
// polyline the joint replaces their common vertex or the one segment between them; at the ends of an open one it
// closes it.
void applyCorner(Document& document, const CornerSides& sides, const Corner& corner, bool trims);

}  // namespace atelier
