// Views stand in a row; what stands about the last of them is placed with its map.
// Match lines and graduations are no part of the drawing: they are made here, in millimetres.
#include "atelier/render/sheets/sheet_page.h"

#include <algorithm>
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/pdf_file.h"

namespace atelier::render {
namespace {

constexpr double kHairlineMm = 0.09;
constexpr double kThinnestPixels = 0.6;
constexpr double kSlackMm = 0.05;  // a view may be larger than the room by this
constexpr double kCutOverhangMm = 3;
constexpr double kBorderMm = 0.5;             // about an inset: half of the width of its outer lines
constexpr double kTick = 0.5, kLabelGap = 1;  // of a graduation, in text heights

std::string millimetres(double value) { return std::to_string(std::lround(value)); }

Path segment(Pt from, Pt to) {
  Path path;
  path.moveTo(from);
  path.lineTo(to);
  return path;
}

Box displaced(const Box& box, Pt by) { return {box.xMin + by.x, box.yMin + by.y, box.xMax + by.x, box.yMax + by.y}; }

Dashes dashDot() { return std::make_shared<const std::vector<double>>(std::vector<double>{8, 1.5, 1, 1.5}); }

}  // namespace

void SheetPage::show(const WholeScene& scene, const Affine& toPage, const Box& windowMm,
                     const std::set<std::uint64_t>& hidden) const {
  const Affine toSurface = Affine::scaling(canvas_.unitsPerMm, canvas_.unitsPerMm);
  PaintOptions options;
  options.toSurface = toSurface * toPage;
  options.unitsPerMm = canvas_.unitsPerMm;
  options.clip = fonts::rectangle(windowMm).bounds(toSurface);
  options.thinnest = kHairlineMm * canvas_.unitsPerMm;
  if (canvas_.vectors) {
    options.embedFonts = true;
    options.most = PdfFile::kMostPaths;
  } else {
    options.thinnest = std::max(options.thinnest, kThinnestPixels);
  }
  if (canvas_.pdf) canvas_.pdf->noteLayers(options, scene);
  options.step = checkInterruption;
  options.inks = inks_;
  Painting painting(canvas_.context, options);
  scene.each([&](const Primitive& item) {
    if (!hidden.contains(item.source)) painting.item(item);
  });
}

SheetPage::Row SheetPage::rowOf(const Sheet& sheet) {
  Row row;
  double left = 0;
  for (const SheetView& view : sheet.views) {
    if (!(view.window.width() > 0 && view.window.height() > 0)) throw PlotError("vue sans étendue");
    if (&view == &sheet.views.back() && sheet.graduation) left = std::max(left, sheet.graduation->width);
    row.lefts.push_back(left);
    row.whole.add(Box{left, view.window.yMin, left + view.window.width(), view.window.yMax});
    left += view.window.width();
  }
  row.whole.add(Pt{0, row.whole.yMin});
  for (const Inset& inset : sheet.insets)
    row.whole.add(displaced(inset.window, inset.shift + Pt{row.lefts.back() - sheet.views.back().window.xMin, 0}));
  return row;
}

// The page millimetres of the row's top left corner.
Pt SheetPage::corner(const Row& row, double perUnit, const Box& room) const {
  const double width = perUnit * row.whole.width(), height = perUnit * row.whole.height();
  if (width > room.width() + kSlackMm || height > room.height() + kSlackMm)
    throw PlotError("la vue mesure " + millimetres(width) + " x " + millimetres(height) + " mm, le modèle " +
                    model_.name + " offre " + millimetres(room.width()) + " x " + millimetres(room.height()) + " mm");
  return {room.xMin - perUnit * row.whole.xMin, room.yMin + (room.height() - height) / 2};
}

void SheetPage::views(const WholeScene& drawing, const Sheet& sheet) const {
  if (sheet.views.empty()) throw PlotError("feuille sans vue");
  const double perUnit = 1000 / sheet.scale;
  const Row row = rowOf(sheet);
  const Pt at = corner(row, perUnit, beneath(room(), sheet.plan));
  Affine toPage;
  for (std::size_t i = 0; i < sheet.views.size(); ++i) {
    const SheetView& view = sheet.views[i];
    const double left = at.x + perUnit * (row.lefts[i] - view.window.xMin);
    toPage = {perUnit, 0, 0, -perUnit, left, at.y + perUnit * row.whole.yMax};
    show(drawing, toPage, fonts::rectangle(view.window).bounds(toPage), view.hidden);
    for (const MatchLine& cut : view.cuts) matchLine(cut, toPage);
  }
  for (const Inset& inset : sheet.insets) {
    const Affine displacedMap = toPage * Affine::translation(inset.shift.x, inset.shift.y);
    Box seen = fonts::rectangle(inset.window).bounds(displacedMap);
    seen = {seen.xMin - kBorderMm, seen.yMin - kBorderMm, seen.xMax + kBorderMm, seen.yMax + kBorderMm};
    show(drawing, displacedMap, seen);
  }
  if (sheet.graduation) graduation(*sheet.graduation, sheet.views.back().window.xMin, toPage);
  if (sheet.plan) strip(drawing, *sheet.plan, perUnit, toPage({sheet.plan->abscissa, 0}).x);
}

// Dash-dotted and a little longer than given.
void SheetPage::matchLine(const MatchLine& cut, const Affine& toPage) const {
  Box line = fonts::rectangle(Box{cut.x, cut.yMin, cut.x, cut.yMax}).bounds(toPage);
  line.yMin -= kCutOverhangMm, line.yMax += kCutOverhangMm;
  DisplayList list;
  list.add(0, Stroke{segment({line.xMin, line.yMin}, {line.xMin, line.yMax}), Pen{kForeground, 0.35, dashDot()}});
  Box clip = line;
  clip.xMin -= 1, clip.xMax += 1;
  show(WholeScene(std::move(list)), {}, clip);
}

void SheetPage::graduation(const Graduation& axis, double x, const Affine& toPage) const {
  const double h = axis.textHeight;
  DisplayList list;
  list.add(0, Stroke{segment({x, axis.yMin}, {x, axis.yMax}), Pen{}});
  for (const auto& [y, label] : axis.marks) {
    list.add(0, Stroke{segment({x - kTick * h, y}, {x, y}), Pen{}});
    const Pt from{x - kLabelGap * h - font_.advance(label, h), y - h / 2};
    list.add(0, GlyphRun{font_.layout(label), Affine::translation(from.x, from.y) * font_.shape(h)});
  }
  Box clip = fonts::rectangle(list.bounds()).bounds(toPage);
  clip.xMax += 1;  // half of the axis' width
  show(WholeScene(std::move(list)), toPage, clip);
}

}  // namespace atelier::render
