// Cuts paths to a box, so that parts far outside the sheet neither overflow the surface nor cost time.
#pragma once

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// The part of the line within the box: false when there is none.
bool clip(const Unbounded& line, const Box& box, Pt& from, Pt& to);

// The stroked path without what lies outside the box. Curves inside stay curves.
Path clipStroke(const Path& path, const Box& box);

// The area of the path within the box; curves become chords within `tolerance`. Edges may coincide along the sides of
// the box, which doesn't matter for filling by either rule.
Path clipFill(const Path& path, const Box& box, double tolerance);

}  // namespace atelier::render
