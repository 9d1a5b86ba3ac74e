// Vectors as strokes; those that a later vector of colour 0 covers are left out.
// On paper they have the least line width.
#include "atelier/render/scene/transients.h"

#include <algorithm>

#include "atelier/render/scene/colours.h"

namespace atelier::render {
namespace {

bool samePlace(const TransientVector& a, const TransientVector& b) {
  return (a.from == b.from && a.to == b.to) || (a.from == b.to && a.to == b.from);
}

}  // namespace

void addTransients(DisplayList& list, const Transients& transients) {
  const auto& vectors = transients.vectors;
  for (auto v = vectors.begin(); v != vectors.end(); ++v) {
    if (v->color == 0) continue;
    const bool removed = std::any_of(
        v + 1, vectors.end(), [&](const TransientVector& later) { return later.color == 0 && samePlace(*v, later); });
    if (removed) continue;
    Pen pen{aciColour(v->color), 0.13, nullptr};
    if (v->highlighted) {
      const double length = v->from.distanceTo(v->to);
      pen.dashes = std::make_shared<const std::vector<double>>(std::vector<double>{length / 40, length / 80});
    }
    Path path;
    path.moveTo({v->from.x, v->from.y});
    path.lineTo({v->to.x, v->to.y});
    list.add(0, Stroke{path, pen});
  }
}

}  // namespace atelier::render
