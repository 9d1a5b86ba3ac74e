// Paths as chords, and areas as trapezoids.
#pragma once

#include <vector>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

struct FlatPath {
  std::vector<Pt> points;
  bool closed = false;
};

// Its subpaths; curves become chords within the tolerance.
std::vector<FlatPath> flattened(const Path& path, double tolerance);

// Between two heights, y0 below y1.
struct Trapezoid {
  double y0, y1, left0, right0, left1, right1;
};

// The area of the paths by the even-odd rule. Edges that cross between two corners are taken as they are halfway.
std::vector<Trapezoid> trapezoids(const std::vector<FlatPath>& paths);

}  // namespace atelier::render
