// The two objects of a corner, brought into the plane that both lie in, and changed to what a corner leaves of them.
// Inner header of the room.
#pragma once
#include <utility>

#include "atelier/document/document.h"
#include "atelier/shaping/corner.h"

namespace atelier {

struct PickedSide {
  AcDbObjectId id;
  CornerSide side;
  bool polyline = false;  // then it stands for the segment that was picked
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

// Throws Error for what has no corners: other curves than lines, rays, arcs, circles and polylines, and objects on
// locked layers. Polylines whose vertices are entities become light ones.
void checkSide(Document& document, const PickedEntity& picked);

struct CornerSides {
  CornerPlane plane;
  PickedSide first, second;
  bool samePolyline() const { return first.polyline && first.id == second.id; }
};
// Throws Error when the two don't lie in one plane, or are the same object and no polyline.
CornerSides cornerSides(Document& document, const PickedEntity& first, const PickedEntity& second);

// Cuts or lengthens the sides to the corner, if `trims`, and draws what joins them, with the properties of the first. A
// polyline takes in what joins it with a line, an arc or another polyline; segments of one polyline get it in place of
// their common vertex or of the one segment between them, and the ends of an open one are closed by it.
void applyCorner(Document& document, const CornerSides& sides, const Corner& corner, bool trims);

}  // namespace atelier
