// Strokes without what a clipped reference hides. Inner header of the room.
#pragma once
#include "atelier/selecting/flat_path.h"

namespace atelier {

// What lies within the polygon, in plan. A filled outline that is cut is only an outline.
std::vector<Stroke> clipped(const std::vector<Stroke>& strokes, std::span<const AcGePoint3d> polygon);

}  // namespace atelier
