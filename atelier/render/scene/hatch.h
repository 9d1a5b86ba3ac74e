// What a HATCH holds: its boundary as a path and the lines of its pattern.
// Reference: DXF reference, "HATCH" and "Boundary path data". Inner header of the room.
#pragma once

#include <vector>

#include "atelier/database/records/groups.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// One family of parallel lines, in the plane of the hatch.
struct PatternLine {
  double angle = 0;            // radians
  Pt base, step;               // a point of the first line; from one line to the next
  std::vector<double> dashes;  // positive dash, negative gap, 0 dot; empty: continuous
};

struct HatchGradient {
  std::string name;
  double angle = 0;             // radians
  std::vector<Colour> colours;  // empty: no gradient
};

struct Hatch {
  Path boundary;  // even-odd, in the plane of the hatch
  double elevation = 0;
  bool solid = true;  // also gradients
  std::vector<PatternLine> lines;
  HatchGradient gradient;
};

// Reads the groups in order. Damaged loops end where they stop making sense; what came before is kept.
Hatch readHatch(const Groups& groups);

// The pattern lines within the boundary, dashes cut out, as one path to stroke. `complete` is false when the
// pattern is so dense that it was left out: more than `most` pieces.
Path patternStrokes(const Hatch& hatch, std::size_t most, bool& complete);

}  // namespace atelier::render
