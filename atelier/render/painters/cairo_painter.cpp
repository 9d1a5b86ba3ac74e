// Paints a display list. Points are mapped to the surface here, in double precision: Cairo's own coordinates are
// fixed-point and would lose the centimetres of a drawing in national coordinates.
#include "atelier/render/painters/cairo_painter.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "atelier/render/painters/cairo_picture.h"
#include "atelier/render/painters/cairo_text.h"
#include "atelier/render/painters/legible.h"
#include "atelier/render/shapes/clip_path.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/shapes/tessellate.h"

namespace atelier::render {

namespace {

constexpr double kPointMarkMm = 2;      // size of a point's mark that has no size of its own
constexpr double kPointDotMm = 0.5;     // diameter of a plain point
constexpr double kDotMm = 0.02;         // length of a dot in a dash pattern: Cairo leaves out dashes of no length
constexpr double kShortestPattern = 1;  // surface units: a finer dash pattern is painted continuous

Box grown(const Box& box, double by) { return {box.xMin - by, box.yMin - by, box.xMax + by, box.yMax + by}; }

constexpr double kThickestHair = 2.5;        // times the thinnest stroke
constexpr std::size_t kMostWaiting = 2'000;  // points: a longer path takes Cairo's rasteriser longer than its parts

bool alike(const Dashes& a, const Dashes& b) { return a == b || (a && b && *a == *b); }

bool alike(const Pen& a, const Pen& b) {
  return a.colour == b.colour && a.weightMm == b.weightMm && alike(a.dashes, b.dashes);
}

}  // namespace

class Painting::Painter {
 public:
  Painter(cairo_t* context, const PaintOptions& options)
      : cr_(context), options_(options), scale_(std::sqrt(std::abs(options.toSurface.determinant()))) {
    // Geometry is cut a few sheets around the clip before it is given to Cairo.
    guard_ = grown(options.clip, std::max(options.clip.width(), options.clip.height()));
  }

  void item(const Primitive& primitive) {
    if (!primitive.box.empty()) {
      const Box seen = primitive.box.mapped(options_.toSurface);
      if (!grown(seen, 2 * options_.unitsPerMm).meets(options_.clip)) return;
      if (options_.tiny && std::max(seen.width(), seen.height()) < 1 && !options_.tiny->mark({seen.xMin, seen.yMin}))
        return;
    }
    useClip(primitive.clip);
    if (options_.layerOf) useLayer(primitive.source);
    std::visit(*this, primitive.shape);
  }

  // Before the context is given back.
  void finish() {
    flush();
    useClip(nullptr);
    if (options_.layerOf) options_.layer({});
  }

  std::size_t painted() const { return painted_; }  // paths and texts

  // Strokes what was put off.
  void flush() {
    if (waiting_.empty()) return;
    ++painted_;
    source(waitingPen_.colour);
    cairo_set_line_width(cr_, width(waitingPen_));
    setDashes(waitingPen_);
    trace(waiting_);
    cairo_stroke(cr_);
    waiting_ = {};
  }

  void operator()(const Stroke& stroke) {
    if (!hair(stroke.path, options_.toSurface, stroke.pen))
      strokePath(stroke.path.mapped(options_.toSurface), stroke.pen);
  }

  void operator()(const Fill& fill) {
    if (fill.gradient) return fillGradient(fill);
    fillPath(fill.path.mapped(options_.toSurface), fill.colour, fill.evenOdd, true);
  }

  void operator()(const Raster& raster) {
    flush();
    ++painted_;
    cairo_save(cr_);
    clipTo(raster.shown);
    paintPixels(cr_, raster, options_.toSurface * raster.map);
    cairo_restore(cr_);
  }

  void operator()(const GlyphRun& run) {
    const Affine map = options_.toSurface * run.map;
    if (std::hypot(map.xy, map.yy) < options_.greekBelow) return greek(run, map);
    flush();
    ++painted_;
    if (options_.embedFonts && fonts_.show(cr_, run.line, map, resolved(run.colour))) return drawBars(run, map);
    Path path;
    for (const auto& [glyph, x] : run.line.glyphs) path.append(glyph->outline, map * Affine::translation(x, 0));
    for (const Box& bar : run.line.bars) path.append(fonts::rectangle(bar), map);
    fillPath(path, run.colour, false);
  }

  void operator()(const Unbounded& line) {
    Unbounded mapped = line;
    mapped.base = options_.toSurface(line.base);
    mapped.direction = options_.toSurface.turn(line.direction);
    Pt from, to;
    if (!clip(mapped, grown(options_.clip, width(line.pen)), from, to)) return;
    Path path;
    path.moveTo(from);
    path.lineTo(to);
    strokePath(path, line.pen);
  }

  void operator()(const Dot& dot) {
    const Pt at = options_.toSurface(dot.at);
    const double size = dot.size > 0 ? dot.size * scale_ : kPointMarkMm * options_.unitsPerMm;
    Path mark;
    const auto line = [&](double x1, double y1, double x2, double y2) {
      mark.moveTo(at + size * Pt{x1, y1});
      mark.lineTo(at + size * Pt{x2, y2});
    };
    switch (dot.mode & 7) {
      case 0: return plainDot(at, dot);
      case 2: line(-0.5, 0, 0.5, 0), line(0, -0.5, 0, 0.5); break;
      case 3: line(-0.5, -0.5, 0.5, 0.5), line(-0.5, 0.5, 0.5, -0.5); break;
      case 4: line(0, 0, 0, -0.5); break;
      default: break;
    }
    frame(mark, at, size, dot.mode);
    strokePath(mark, dot.pen);
  }

 private:
  cairo_t* cr_;
  const PaintOptions& options_;
  double scale_;  // surface units in a drawing unit
  Box guard_;
  EmbeddedFonts fonts_;
  Path waiting_;  // strokes alike, surface units
  Pen waitingPen_;
  std::size_t painted_ = 0;
  std::shared_ptr<const Clip> clip_;  // in force
  std::uint64_t source_ = 0;          // of what was painted last, and its layer
  std::string layer_;
  mutable std::unordered_map<int, Colour> legible_;

  const InkRow* ink(const Colour& drawn) const { return options_.inks ? options_.inks->rowOf(drawn) : nullptr; }

  double width(const Pen& pen) const {
    const InkRow* const row = ink(pen.colour);
    return std::max((row ? row->weightMm : std::nullopt).value_or(pen.weightMm) * options_.unitsPerMm,
                    options_.thinnest);
  }

  void plainDot(Pt at, const Dot& dot) {
    const double radius = std::max(kPointDotMm * options_.unitsPerMm, options_.thinnest) / 2;
    Path disc;
    addEllipse(disc, at, {radius, 0}, {0, radius});
    fillPath(disc, dot.pen.colour, false);
    Path rim;
    frame(rim, at, dot.size > 0 ? dot.size * scale_ : kPointMarkMm * options_.unitsPerMm, dot.mode);
    strokePath(rim, dot.pen);
  }

  static void frame(Path& mark, Pt at, double size, int mode) {
    if (mode & 32) addEllipse(mark, at, {size / 2, 0}, {0, size / 2});
    Box square;
    square.add(at - Pt{size / 2, size / 2});
    square.add(at + Pt{size / 2, size / 2});
    if (mode & 64) mark.append(fonts::rectangle(square));
  }

  Colour onSurface(const Colour& colour) const {
    if (colour.kind == Colour::Kind::foreground) return options_.foreground;
    return colour.kind == Colour::Kind::background ? options_.background : colour;
  }

  Colour resolved(const Colour& drawn, bool area = false) const {
    const InkRow* const row = ink(drawn);
    const Ink wanted = row ? area ? row->area : row->line : Ink();
    Colour colour = onSurface(wanted.kind == Ink::Kind::given ? wanted.colour : drawn);
    if (wanted.kind == Ink::Kind::grey) colour = grey(colour);
    colour.alpha = drawn.alpha;
    const bool seen = options_.leastContrast > 0 && !area && colour.alpha == 255 && drawn.kind == Colour::Kind::rgb;
    return seen ? legibleOnSurface(colour) : colour;
  }

  Colour legibleOnSurface(const Colour& colour) const {
    const auto [known, isNew] = legible_.try_emplace(colour.r << 16 | colour.g << 8 | colour.b, colour);
    if (isNew) known->second = legible(colour, options_.background, options_.leastContrast);
    return known->second;
  }

  // As light as a colour; reference: ITU-R BT.601.
  static Colour grey(const Colour& colour) {
    const auto level = static_cast<std::uint8_t>((299 * colour.r + 587 * colour.g + 114 * colour.b + 500) / 1000);
    return {level, level, level};
  }

  void source(Colour colour, bool area = false) { setSource(cr_, resolved(colour, area)); }

  void greek(const GlyphRun& run, const Affine& map) {
    Path path;
    path.moveTo(map({0, 0.5}));
    path.lineTo(map({run.line.advance, 0.5}));
    strokePath(path, {run.colour, 0, nullptr});
  }

  void drawBars(const GlyphRun& run, const Affine& map) {
    Path path;
    for (const Box& bar : run.line.bars) path.append(fonts::rectangle(bar), map);
    fillPath(path, run.colour, false);
  }

  void trace(const Path& path) {
    cairo_new_path(cr_);
    const Pt* p = path.points().data();
    for (const Path::Verb verb : path.verbs()) {
      switch (verb) {
        case Path::Verb::move: cairo_move_to(cr_, p->x, p->y), ++p; break;
        case Path::Verb::line: cairo_line_to(cr_, p->x, p->y), ++p; break;
        case Path::Verb::cubic: cairo_curve_to(cr_, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y), p += 3; break;
        case Path::Verb::close: cairo_close_path(cr_); break;
      }
    }
  }

  void strokePath(const Path& path, const Pen& pen) {
    if (path.empty() || hair(path, {}, pen)) return;
    if (!alike(pen, waitingPen_) || waiting_.points().size() > kMostWaiting) flush();
    waitingPen_ = pen;
    waiting_.append(within(path.bounds(), guard_) ? path : clipStroke(path, guard_));
    if (resolved(pen.colour).alpha != 255) flush();  // where two cross, both are seen
  }

  bool hair(const Path& path, const Affine& map, const Pen& pen) {
    const Colour colour = resolved(pen.colour);
    if (!options_.hairlines || clip_ || pen.dashes || colour.alpha != 255 ||
        width(pen) > kThickestHair * std::max(1.0, options_.thinnest))
      return false;
    flush();  // what was put off is above it
    cairo_surface_t* const surface = cairo_get_target(cr_);
    cairo_surface_flush(surface);
    options_.hairlines->stroke(path, map, colour, std::max(1, static_cast<int>(std::lround(width(pen)))));
    cairo_surface_mark_dirty(surface);
    return true;
  }

  void setDashes(const Pen& pen) {
    std::vector<double> lengths;
    double total = 0;
    if (pen.dashes)
      for (const double d : *pen.dashes)
        total += lengths.emplace_back(std::max(d * scale_, kDotMm * options_.unitsPerMm));
    const bool visible = total >= kShortestPattern && std::isfinite(total);
    cairo_set_dash(cr_, lengths.data(), visible ? static_cast<int>(lengths.size()) : 0, 0);
  }

  void fillPath(const Path& path, Colour colour, bool evenOdd, bool area = false) {
    if (path.empty()) return;
    flush();
    ++painted_;
    source(colour, area);
    fillTraced(path, evenOdd);
  }

  void fillGradient(const Fill& fill) {
    const Gradient& gradient = *fill.gradient;
    flush();
    ++painted_;
    const Pt from = options_.toSurface(gradient.from), to = options_.toSurface(gradient.to);
    cairo_pattern_t* const pattern = cairo_pattern_create_linear(from.x, from.y, to.x, to.y);
    for (const Gradient::Stop& stop : gradient.stops) {
      const Colour c = resolved(stop.colour, true);
      cairo_pattern_add_color_stop_rgba(pattern, stop.at, c.r / 255.0, c.g / 255.0, c.b / 255.0, c.alpha / 255.0);
    }
    cairo_set_source(cr_, pattern);
    cairo_pattern_destroy(pattern);
    fillTraced(fill.path.mapped(options_.toSurface), fill.evenOdd);
  }

  // Primitives alike follow one another: a boundary is set once for all of them.
  void useClip(const std::shared_ptr<const Clip>& clip) {
    if (clip == clip_) return;
    flush();
    if (clip_) cairo_restore(cr_);
    clip_ = clip;
    if (!clip_) return;
    cairo_save(cr_);
    for (const Clip* area = clip_.get(); area; area = area->outer.get()) clipTo(area->area);
  }

  void useLayer(std::uint64_t source) {
    if (source == source_) return;
    source_ = source;
    std::string layer = options_.layerOf(source);
    if (layer == layer_) return;
    flush();
    layer_ = std::move(layer);
    options_.layer(layer_);
  }

  void clipTo(const Path& area) {
    cairo_set_fill_rule(cr_, CAIRO_FILL_RULE_EVEN_ODD);
    trace(clipFill(area.mapped(options_.toSurface), guard_, 0.05));
    cairo_clip(cr_);
  }

  void fillTraced(const Path& path, bool evenOdd) {
    cairo_set_fill_rule(cr_, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    trace(within(path.bounds(), guard_) ? path : clipFill(path, guard_, 0.05));
    cairo_fill(cr_);
  }

  static bool within(const Box& inner, const Box& box) {
    return inner.xMin >= box.xMin && inner.xMax <= box.xMax && inner.yMin >= box.yMin && inner.yMax <= box.yMax;
  }
};

Painting::Painting(cairo_t* context, const PaintOptions& options) : context_(context), options_(options) {
  cairo_save(context);
  if (options.clip.empty()) return;
  cairo_rectangle(context, options.clip.xMin, options.clip.yMin, options.clip.width(), options.clip.height());
  cairo_clip(context);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  if (options.hairlines) cairo_set_operator(context, CAIRO_OPERATOR_DEST_OVER);
  painter_ = std::make_unique<Painter>(context, options_);
}

Painting::~Painting() {
  if (painter_) painter_->finish();
  cairo_restore(context_);
}

void Painting::item(const Primitive& primitive) {
  if (options_.step) options_.step();
  if (!painter_) return;
  painter_->item(primitive);
  if (options_.most && painter_->painted() > options_.most)
    throw PlotError("tracé impossible : plus de " + std::to_string(options_.most) +
                    " textes et traits de couleurs ou d'épaisseurs différentes sur une page ; tracez en .png ou par "
                    "fenêtres (--window)");
}

void Painting::list(const DisplayList& list) {
  if (options_.hairlines)
    for (auto each = list.items().rbegin(); each != list.items().rend(); ++each) item(*each);
  else
    for (const Primitive& each : list.items()) item(each);
}

void paint(cairo_t* context, const DisplayList& list, const PaintOptions& options) {
  Painting(context, options).list(list);
}

}  // namespace atelier::render
