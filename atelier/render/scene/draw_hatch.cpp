// Hatches: solid ones as areas, patterns as strokes without a line type of their own.
#include "atelier/render/scene/colours.h"
#include "atelier/render/scene/hatch.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {

namespace {

constexpr std::size_t kMostPieces = 200'000;  // of one hatch

}  // namespace

void drawHatch(SceneBuilder& scene, const Entity& e) {
  const Hatch hatch = readHatch(e.groups);
  if (hatch.boundary.empty()) return scene.cannotShow("hachure sans contour lisible");
  const Affine map = e.plane(hatch.elevation);
  if (hatch.solid) {
    Colour colour = e.look.colour;
    if (const Group* gradient = hatch.gradientColour) {
      colour = gradient->code() == 421 ? trueColour(static_cast<std::uint32_t>(gradient->integer()))
                                       : aciColour(static_cast<int>(gradient->integer()));
      colour.alpha = e.look.colour.alpha;
    }
    return scene.fill(e, hatch.boundary.mapped(map), true, colour);
  }
  bool complete = true;
  Path lines = patternStrokes(hatch, kMostPieces, complete);
  if (!complete) return scene.cannotShow("hachure trop serrée pour être tracée");
  scene.add(e, Stroke{lines.mapped(map), {e.look.colour, e.look.weightMm, nullptr}});
}

}  // namespace atelier::render
