// Smoothed forms of a lightweight polyline's vertices: pairs of arcs through them, or a curve with them as its frame.
// Inner header of the room.
#pragma once
#include <vector>

#include "atelier/database/curves/polyline_vertices.h"

namespace atelier {

// Two arcs from each vertex to the next, with one tangent at every vertex. At least three vertices.
std::vector<PolylineVertex> fittedByArcs(const std::vector<PolylineVertex>& list, bool closed);

// The uniform B-spline of that degree with the vertices as control points, as so many chords per side of the frame.
std::vector<PolylineVertex> framedCurve(const std::vector<PolylineVertex>& list, bool closed, int degree, int chords);

}  // namespace atelier
