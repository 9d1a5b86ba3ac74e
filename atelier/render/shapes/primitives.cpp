// Boxes of primitives.
// A glyph run's box comes from the boxes of its glyphs: exact when upright, a little large when slanted.
#include "atelier/render/shapes/primitives.h"

#include <algorithm>
#include <cmath>

namespace atelier::render {

namespace {

bool finite(Pt p) { return std::isfinite(p.x) && std::isfinite(p.y); }

Box boxOf(const Path& path) { return std::ranges::all_of(path.points(), finite) ? path.bounds() : Box{}; }

Box common(const Box& a, const Box& b) {
  return {std::max(a.xMin, b.xMin), std::max(a.yMin, b.yMin), std::min(a.xMax, b.xMax), std::min(a.yMax, b.yMax)};
}

struct BoxOf {
  Box operator()(const Stroke& s) const { return boxOf(s.path); }
  Box operator()(const Fill& f) const { return boxOf(f.path); }
  Box operator()(const Unbounded&) const { return {}; }
  Box operator()(const Raster& r) const { return boxOf(r.shown); }
  Box operator()(const Dot& d) const {
    const Pt half{d.size / 2, d.size / 2};
    Box box;
    box.add(d.at - half);
    box.add(d.at + half);
    return box;
  }
  Box operator()(const GlyphRun& run) const {
    Box box;
    const auto add = [&](const Box& part, double x) {
      if (!part.empty()) box.add(fonts::rectangle(part).bounds(run.map * Affine::translation(x, 0)));
    };
    for (const auto& [glyph, x] : run.line.glyphs) add(glyph->ink, x);
    for (const Box& bar : run.line.bars) add(bar, 0);
    return box;
  }
};

}  // namespace

Colour colourOf(const Shape& shape) {
  struct Find {
    Colour operator()(const Stroke& s) const { return s.pen.colour; }
    Colour operator()(const Fill& f) const { return f.colour; }
    Colour operator()(const GlyphRun& g) const { return g.colour; }
    Colour operator()(const Unbounded& u) const { return u.pen.colour; }
    Colour operator()(const Dot& d) const { return d.pen.colour; }
    Colour operator()(const Raster& r) const { return {128, 128, 128, Colour::Kind::rgb, r.alpha}; }
  };
  return std::visit(Find{}, shape);
}

Box Clip::box() const { return outer ? common(area.bounds(), outer->box()) : area.bounds(); }

std::optional<Primitive> primitive(std::uint64_t source, Shape shape, std::shared_ptr<const Clip> clip) {
  Box box = std::visit(BoxOf{}, shape);
  if (clip && !box.empty()) box = common(box, clip->box());
  const auto* line = std::get_if<Unbounded>(&shape);
  if (line ? !finite(line->base) || !finite(line->direction) : box.empty()) return {};
  return Primitive{source, box, std::move(shape), std::move(clip)};
}

void DisplayList::add(std::uint64_t source, Shape shape) {
  if (auto item = primitive(source, std::move(shape))) add(std::move(*item));
}

void DisplayList::add(Primitive&& item) {
  bounds_.add(item.box);
  items_.push_back(std::move(item));
}

}  // namespace atelier::render
