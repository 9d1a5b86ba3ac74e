// The constrained Delaunay triangulation of points and breaklines, in plan, with exact predicates.
// CGAL stands behind it, in triangulation.cpp and nowhere else; a build without CGAL has triangulationAbsente.cpp.
#pragma once
#include "etudes/surfaces/surface.h"

namespace etu {

struct triangulation {
  maillage mesh;
  std::size_t doubles = 0;  // points that repeat the place of another one
};

// Where two points, or a point and a breakline, have one place and two altitudes, the first one stands; where
// breaklines cross, the mean of both. Coordinates that aren't finite are not allowed. Throws `refus` when no triangle
// can be made, or without CGAL.
triangulation trianguler(const std::vector<point3>& points, const std::vector<std::pair<numero, numero>>& segments,
                         listeContradictions& contradictions);

}  // namespace etu
