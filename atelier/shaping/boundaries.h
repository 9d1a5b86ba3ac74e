// Closed outlines made of entities, for hatches.
#pragma once
#include <optional>
#include <vector>

#include "atelier/database/curves/polyline_vertices.h"
#include "hote/dbents.h"

namespace atelier {

// Straight and circular pieces in plan; the bulge of an open one's last vertex counts for nothing.
struct Boundary {
  std::vector<PolylineVertex> vertices;
  bool closed = false;
};

// Of a line, an arc, a circle or a polyline that is seen from above; nothing for any other entity.
std::optional<Boundary> boundaryOf(const AcDbEntity& entity);

// Joins open ones at their ends; false when one stays open.
bool closeBoundaries(std::vector<Boundary>& boundaries);

}  // namespace atelier
