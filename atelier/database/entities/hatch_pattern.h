// The lines of a hatch's pattern as they stand in its record, and its seed points.
// Reference: DXF reference, "HATCH" and "Pattern data". Lengths and points are those of the hatch's plane.
#pragma once
#include <span>
#include <vector>

#include "atelier/database/curves/plane_map.h"
#include "atelier/database/objects/imp_object.h"

namespace atelier {

// One family of parallel lines.
struct PatternLine {
  double angle = 0;            // degrees
  AcGePoint2d base;            // a point of the first line
  AcGeVector2d step;           // from one line to the next
  std::vector<double> dashes;  // positive dash, negative gap, 0 dot; empty: continuous
};

// Lines end where they stop making sense. `begin` and `end` are their groups, after their count (78).
struct PatternAt {
  std::vector<PatternLine> lines;
  std::size_t begin = 0, end = 0;
};
PatternAt loadPattern(std::span<const Group* const> groups);
void writePattern(const std::vector<PatternLine>& lines, std::vector<Group>& out);

// The pattern goes with the boundary.
void transform(PatternLine& line, const PlaneMap& map);

}  // namespace atelier
