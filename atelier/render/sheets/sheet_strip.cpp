// The plan strip above a profile, and what is drawn on the sheet itself.
#include <cmath>

#include "atelier/render/scene/picture_files.h"
#include "atelier/render/sheets/sheet_page.h"

namespace atelier::render {
namespace {

constexpr double kGapMm = 4;          // between the strip and the profile
constexpr double kFrameMm = 0.25;     // weight of the strip's frame
constexpr double kCutMm = 0.35;       // weight of its match lines
constexpr double kThinMm = 0.13;      // and of its ticks
constexpr double kLabelMm = 2.5;      // height of its labels
constexpr double kClipSlackMm = 0.5;  // half of the widest line that is drawn here

Path through(const std::vector<Pt>& points, bool closed) {
  Path path;
  for (std::size_t i = 0; i < points.size(); ++i) i ? path.lineTo(points[i]) : path.moveTo(points[i]);
  if (closed) path.close();
  return path;
}

Box grown(Box box, double by) { return {box.xMin - by, box.yMin - by, box.xMax + by, box.yMax + by}; }

}  // namespace

GlyphRun SheetPage::written(const std::string& text, Pt at, double height, int side, double angle) const {
  const double before = font_.advance(text, height) * side / 2, c = std::cos(angle), s = std::sin(angle);
  const Affine turned{c, -s, -s, -c, at.x - before * c, at.y + before * s};
  return {font_.layout(text), turned * font_.shape(height)};
}

Box SheetPage::room() const { return fonts::rectangle(model_.room).bounds(paper()); }

Box SheetPage::beneath(Box room, const std::optional<PlanStrip>& plan) {
  if (plan) room.yMin += plan->heightMm + kGapMm;
  return room;
}

void SheetPage::strip(const WholeScene& drawing, const PlanStrip& plan, double perUnit, double x) const {
  Box band = room();
  band.yMax = band.yMin + plan.heightMm;
  const double c = perUnit * std::cos(plan.angle), s = perUnit * std::sin(plan.angle);
  // Turned back by the angle, y downwards.
  const Affine toPage =
      Affine{c, s, s, -c, x, (band.yMin + band.yMax) / 2} * Affine::translation(-plan.at.x, -plan.at.y);
  show(drawing, toPage, band);
  DisplayList list;
  list.add(
      0,
      Stroke{through({{band.xMin, band.yMin}, {band.xMax, band.yMin}, {band.xMax, band.yMax}, {band.xMin, band.yMax}},
                     true),
             Pen{kForeground, kFrameMm, nullptr}});
  const auto dashes = std::make_shared<const std::vector<double>>(std::vector<double>{8, 1.5, 1, 1.5});
  for (const PlanStrip::Line& line : plan.lines)
    list.add(0, Stroke{through({toPage(line.from), toPage(line.to)}, false),
                       line.cut ? Pen{kForeground, kCutMm, dashes} : Pen{kForeground, kThinMm, nullptr}});
  for (const PlanStrip::Label& label : plan.labels) list.add(0, written(label.text, toPage(label.at), kLabelMm, 1));
  show(WholeScene(std::move(list)), {}, grown(band, kClipSlackMm));
}

namespace {

// In the box of two opposite corners; nothing for a file that can't be read, which whoever made the item has told.
std::optional<Raster> shownPicture(const PaperItem& item, const std::vector<Pt>& points) {
  std::string reason;
  const auto picture = points.size() == 2 ? pictureOf(item.text, reason) : nullptr;
  if (!picture) return {};
  Box box;
  for (const Pt p : points) box.add(p);
  return Raster{picture,
                {box.width() / picture->width, 0, 0, box.height() / picture->height, box.xMin, box.yMin},
                fonts::rectangle(box)};
}

}  // namespace

void SheetPage::items(const std::vector<PaperItem>& items) const {
  const Box area = room();
  DisplayList list;
  for (const PaperItem& item : items) {
    std::vector<Pt> points;
    for (const Pt p : item.points) points.push_back({area.xMin + p.x, area.yMax - p.y});
    if (points.empty()) continue;
    switch (item.kind) {
      case PaperItem::Kind::line:
        list.add(0, Stroke{through(points, false), Pen{kForeground, item.size, nullptr}});
        break;
      case PaperItem::Kind::text:
        list.add(0, written(item.text, points.front(), item.size, item.side, item.angle));
        break;
      case PaperItem::Kind::area: list.add(0, Fill{through(points, true)}); break;
      case PaperItem::Kind::picture:
        if (auto raster = shownPicture(item, points)) list.add(0, std::move(*raster));
        break;
      case PaperItem::Kind::blank: list.add(0, Fill{through(points, true), kBackground}); break;
    }
  }
  show(WholeScene(std::move(list)), {}, fonts::rectangle(model_.sheet).bounds(paper()));
}

}  // namespace atelier::render
