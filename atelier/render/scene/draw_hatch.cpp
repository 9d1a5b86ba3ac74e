// Hatches: solid ones as areas, patterns as strokes without a line type of their own.
#include "atelier/render/scene/hatch.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {

namespace {

constexpr std::size_t kMostPieces = 200'000;  // of one hatch

Colour between(const Colour& a, const Colour& b) {
  const auto mean = [](std::uint8_t x, std::uint8_t y) { return static_cast<std::uint8_t>((x + y) / 2); };
  return {mean(a.r, b.r), mean(a.g, b.g), mean(a.b, b.b), Colour::Kind::rgb, a.alpha};
}

// Along the angle from one side of the boundary to the other. Those that aren't even across it have none.
std::shared_ptr<const Gradient> gradientOf(const HatchGradient& hatch, const Path& boundary, const Affine& map,
                                           const Colour& first, const Colour& second) {
  const bool linear = hatch.name == "LINEAR", inverse = hatch.name == "INVCYLINDER";
  if (!linear && !inverse && hatch.name != "CYLINDER") return nullptr;
  const Box box = boundary.bounds(Affine::rotation(-hatch.angle));
  const Affine back = map * Affine::rotation(hatch.angle);
  const double middle = (box.yMin + box.yMax) / 2;
  Gradient made{back({box.xMin, middle}), back({box.xMax, middle}), {}};
  if (linear) made.stops = {{0, first}, {1, second}};
  else if (inverse) made.stops = {{0, second}, {0.5, first}, {1, second}};
  else made.stops = {{0, first}, {0.5, second}, {1, first}};
  return std::make_shared<const Gradient>(std::move(made));
}

void drawArea(SceneBuilder& scene, const Entity& e, const Hatch& hatch, const Affine& map) {
  Fill fill{hatch.boundary.mapped(map), e.look.colour, true};
  if (const auto& colours = hatch.gradient.colours; !colours.empty()) {
    Colour first = colours.front(), second = colours.back();
    first.alpha = second.alpha = e.look.colour.alpha;
    fill.colour = between(first, second);
    fill.gradient = gradientOf(hatch.gradient, hatch.boundary, map, first, second);
  }
  scene.add(e, std::move(fill));
}

}  // namespace

void drawHatch(SceneBuilder& scene, const Entity& e) {
  if (scene.database().header.integer("$FILLMODE", 1) == 0) return;
  const Hatch hatch = readHatch(e.groups);
  if (hatch.boundary.empty()) return scene.cannotShow("hachure sans contour lisible");
  const Affine map = e.plane(hatch.elevation);
  if (hatch.solid) return drawArea(scene, e, hatch, map);
  bool complete = true;
  Path lines = patternStrokes(hatch, kMostPieces, complete);
  if (!complete) return scene.cannotShow("hachure trop serrée pour être tracée");
  scene.add(e, Stroke{lines.mapped(map), {e.look.colour, e.look.weightMm, nullptr}});
}

}  // namespace atelier::render
