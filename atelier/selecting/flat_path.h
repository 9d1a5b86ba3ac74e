// What an entity draws, as straight strokes seen in plan: the form on which picks and selections by place
// work. Arcs and curves are cut into short chords; texts and hatches stand as the box that they fill.
#pragma once
#include <span>
#include <vector>

#include "hote/dbmain.h"

namespace atelier {

struct Stroke {
  std::vector<AcGePoint3d> points;  // world coordinates; a single point for a point entity
  bool filled = false;              // a closed outline whose inside counts too
};

// Strokes of an entity that is in a database; those of blocks and attributes included. Empty for what draws
// nothing.
std::vector<Stroke> strokesOf(const AcDbEntity& entity);

// Distance in plan from a point to the strokes; infinite when there are none, 0 inside a filled one.
double distanceTo(std::span<const Stroke> strokes, const AcGePoint3d& point);

// Whether the strokes lie wholly inside the polygon (its edge included), come into it, or meet the open line.
bool insidePolygon(std::span<const Stroke> strokes, std::span<const AcGePoint3d> polygon);
bool touchesPolygon(std::span<const Stroke> strokes, std::span<const AcGePoint3d> polygon);
bool crossesLine(std::span<const Stroke> strokes, std::span<const AcGePoint3d> line);

}  // namespace atelier
