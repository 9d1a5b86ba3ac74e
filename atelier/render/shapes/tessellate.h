// Curves of drawings as paths: arcs as cubic Béziers within a tolerance, wide polylines as areas.
// Plane coordinates; angles in radians, counter-clockwise.
#pragma once

#include <span>
#include <vector>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// The largest distance of a Bézier arc from the true one, as a share of the radius.
constexpr double kArcTolerance = 1e-7;

// An elliptic arc: points are centre + cos(t)·u + sin(t)·v for t from start to start + sweep (either sign;
// held within one turn). Continues the path with a line to its start, or moves there when `move` is set or
// the path is empty.
void addArc(Path& path, Pt centre, Pt u, Pt v, double start, double sweep, bool move = false);

// A whole ellipse as a closed subpath.
void addEllipse(Path& path, Pt centre, Pt u, Pt v);

// The arc of a bulge (group 42: tangent of a quarter of the included angle, positive counter-clockwise) from
// the path's last point to `to`; a line when the bulge is 0, not finite or the points coincide.
void addBulge(Path& path, Pt from, Pt to, double bulge);

struct PolyVertex {
  Pt at;
  double bulge = 0;                     // of the segment that starts here
  double startWidth = 0, endWidth = 0;  // of that segment
};

// The line through the vertices.
Path polylinePath(std::span<const PolyVertex> vertices, bool closed);
// Whether some segment has a width.
bool isWide(std::span<const PolyVertex> vertices, bool closed);
// The area that a wide polyline covers, for the nonzero rule: joints of straight segments are mitred, too sharp ones
// bevelled. Segments without width are left out: they must be stroked.
Path wideArea(std::span<const PolyVertex> vertices, bool closed);

}  // namespace atelier::render
