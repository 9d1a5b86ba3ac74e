// What an entity draws, as straight strokes in plan, for picks and selections by place.
// Arcs and curves become short chords; texts and hatches become the box that they fill.
#pragma once
#include <span>
#include <vector>

#include "hote/dbmain.h"

namespace atelier {

struct Stroke {
  std::vector<AcGePoint3d> points;  // world coordinates; a single point for a point entity
  bool filled = false;              // a closed outline whose inside counts too
};

// Strokes of an entity that is in a database, with those of its block and attributes. Empty when it draws nothing.
std::vector<Stroke> strokesOf(const AcDbEntity& entity);

// Distance in plan from a point to the strokes; infinite when there are none, 0 inside a filled one.
double distanceTo(std::span<const Stroke> strokes, const AcGePoint3d& point);

// Whether the strokes lie wholly inside the polygon (its edge included), touch it, or meet the open line.
bool insidePolygon(std::span<const Stroke> strokes, std::span<const AcGePoint3d> polygon);
bool insidePolygon(const AcGePoint3d& point, std::span<const AcGePoint3d> polygon);
bool touchesPolygon(std::span<const Stroke> strokes, std::span<const AcGePoint3d> polygon);
bool crossesLine(std::span<const Stroke> strokes, std::span<const AcGePoint3d> line);

}  // namespace atelier
