// Marks are drawn in pixels, so that they keep their size at every zoom.
#include "atelier/desktop/view/view_marks.h"

#include <QFontMetrics>

#include "atelier/render/scene/colours.h"

namespace atelier::desktop {
namespace {

constexpr double kGrip = 4, kSnap = 6;  // half sides in pixels
const QColor kSnapColour(0, 170, 0), kGripColour(40, 110, 220), kHotColour(220, 50, 30);
const QColor kStaleColour(230, 120, 0);
constexpr double kFlag = 9;  // side in pixels
const QColor kWindowColour(40, 110, 220), kCrossingColour(0, 150, 60);

QColor aci(int index, bool dark) {
  const render::Colour c = render::aciColour(index);
  if (c.kind != render::Colour::Kind::rgb) return dark ? Qt::white : Qt::black;
  return QColor(c.r, c.g, c.b);
}

}  // namespace

QColor colourOf(Emphasis emphasis) {
  switch (emphasis) {
    case Emphasis::hover: return QColor(80, 150, 255, 150);
    case Emphasis::selected: return QColor(30, 110, 230);
    case Emphasis::highlighted: return QColor(230, 120, 0);
  }
  return {};
}

QPainterPath toQt(const render::Path& path, const render::Affine& map) {
  QPainterPath out;
  const render::Path mapped = path.mapped(map);
  const render::Pt* p = mapped.points().data();
  for (const render::Path::Verb verb : mapped.verbs()) switch (verb) {
      case render::Path::Verb::move: out.moveTo(p->x, p->y), ++p; break;
      case render::Path::Verb::line: out.lineTo(p->x, p->y), ++p; break;
      case render::Path::Verb::cubic: out.cubicTo(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y), p += 3; break;
      case render::Path::Verb::close: out.closeSubpath(); break;
    }
  return out;
}

ViewMarks::ViewMarks(QPainter& painter, const Viewport& viewport, bool darkGround)
    : painter_(painter), viewport_(viewport), dark_(darkGround) {}

void ViewMarks::list(const render::DisplayList& list, Emphasis emphasis) {
  const render::Affine map = viewport_.toPixels(1);
  const QColor colour = colourOf(emphasis);
  painter_.setPen(QPen(colour, emphasis == Emphasis::hover ? 2.5 : 2));
  painter_.setBrush(Qt::NoBrush);
  for (const render::Primitive& item : list.items()) {
    if (const auto* stroke = std::get_if<render::Stroke>(&item.shape)) {
      painter_.drawPath(toQt(stroke->path, map));
    } else if (const auto* fill = std::get_if<render::Fill>(&item.shape)) {
      painter_.drawPath(toQt(fill->path, map));
    } else if (const auto* run = std::get_if<render::GlyphRun>(&item.shape)) {
      for (const auto& [glyph, x] : run->line.glyphs)
        painter_.fillPath(toQt(glyph->outline, map * run->map * render::Affine::translation(x, 0)), colour);
    } else if (const auto* dot = std::get_if<render::Dot>(&item.shape)) {
      painter_.drawEllipse(viewport_.pixel(dot->at.x, dot->at.y), 3, 3);
    }
  }
}

void ViewMarks::transients(const Transients& transients) {
  for (const TransientVector& v : transients.vectors) {
    if (v.color == 0) continue;
    painter_.setPen(QPen(aci(v.color, dark_), 1, v.highlighted ? Qt::DashLine : Qt::SolidLine));
    painter_.drawLine(viewport_.pixel(v.from), viewport_.pixel(v.to));
  }
}

void ViewMarks::rubberBand(const AcGePoint3d& from, const QPointF& to) {
  painter_.setPen(QPen(dark_ ? Qt::lightGray : Qt::darkGray, 1, Qt::DashLine));
  painter_.drawLine(viewport_.pixel(from), to);
}

void ViewMarks::rectangle(const AcGePoint3d& from, const QPointF& to, bool selecting) {
  const QPointF start = viewport_.pixel(from);
  const bool crossing = selecting && to.x() < start.x();
  QColor colour = crossing ? kCrossingColour : kWindowColour;
  painter_.setPen(QPen(colour, 1, crossing ? Qt::DashLine : Qt::SolidLine));
  colour.setAlpha(selecting ? 40 : 0);
  painter_.setBrush(colour);
  painter_.drawRect(QRectF(start, to).normalized());
  painter_.setBrush(Qt::NoBrush);
}

// A thin frame with a flag in its upper left corner, which is seen at every zoom.
void ViewMarks::frames(std::span<const AcDbExtents> boxes) {
  for (const AcDbExtents& box : boxes) {
    const QRectF frame = QRectF(viewport_.pixel(box.minPoint()), viewport_.pixel(box.maxPoint())).normalized();
    painter_.setPen(QPen(kStaleColour, 1, Qt::DashLine));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(frame);
    const QPointF corner = frame.topLeft();
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(kStaleColour);
    painter_.drawPolygon(QPolygonF({corner, corner + QPointF(kFlag, 0), corner + QPointF(0, kFlag)}));
  }
  painter_.setBrush(Qt::NoBrush);
}

void ViewMarks::grips(std::span<const Grip> grips, std::optional<std::size_t> hot) {
  for (std::size_t i = 0; i < grips.size(); ++i) {
    const QPointF at = viewport_.pixel(grips[i].at);
    painter_.fillRect(QRectF(at.x() - kGrip, at.y() - kGrip, 2 * kGrip, 2 * kGrip),
                      i == hot ? kHotColour : kGripColour);
  }
}

void ViewMarks::snap(const Snap& snap) {
  const QPointF at = viewport_.pixel(snap.point);
  painter_.setPen(QPen(kSnapColour, 2));
  painter_.setBrush(Qt::NoBrush);
  const QRectF box(at.x() - kSnap, at.y() - kSnap, 2 * kSnap, 2 * kSnap);
  switch (snap.mode) {
    case kEnd: painter_.drawRect(box); break;
    case kMiddle: painter_.drawPolygon(QPolygonF({box.bottomLeft(), box.bottomRight(), {at.x(), box.top()}})); break;
    case kCentre: painter_.drawEllipse(box); break;
    case kNode:
      painter_.drawEllipse(box);
      painter_.drawLine(box.topLeft(), box.bottomRight());
      painter_.drawLine(box.topRight(), box.bottomLeft());
      break;
    case kQuadrant:
      painter_.drawPolygon(
          QPolygonF({{at.x(), box.top()}, {box.right(), at.y()}, {at.x(), box.bottom()}, {box.left(), at.y()}}));
      break;
    case kInsertion:
      painter_.drawRect(QRectF(box.topLeft(), at));
      painter_.drawRect(QRectF(at, box.bottomRight()));
      break;
    case kIntersection:
      painter_.drawLine(box.topLeft(), box.bottomRight());
      painter_.drawLine(box.topRight(), box.bottomLeft());
      break;
    case kPerpendicular:
      painter_.drawPolyline(QPolygonF({box.topLeft(), box.bottomLeft(), box.bottomRight()}));
      painter_.drawPolyline(QPolygonF({{box.left(), at.y()}, at, {at.x(), box.bottom()}}));
      break;
    case kNearest:
      painter_.drawPolygon(QPolygonF({box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}));
      break;
  }
  note(at + QPointF(12, -30), QString::fromUtf8(snapName(snap.mode)));
}

void ViewMarks::pointed(const AcGePoint3d& at) {
  painter_.setPen(QPen(kHotColour, 2));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawEllipse(viewport_.pixel(at), 2 * kGrip, 2 * kGrip);
}

void ViewMarks::crosshair(const QPointF& at, double pickBox) {
  painter_.setPen(QPen(dark_ ? QColor(200, 200, 200, 160) : QColor(60, 60, 60, 140), 1));
  painter_.drawLine(QPointF(0, at.y()), QPointF(viewport_.size.width(), at.y()));
  painter_.drawLine(QPointF(at.x(), 0), QPointF(at.x(), viewport_.size.height()));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(QRectF(at.x() - pickBox, at.y() - pickBox, 2 * pickBox, 2 * pickBox));
}

QSizeF ViewMarks::sizeOf(const QStringList& lines) const {
  const QFontMetrics metrics(painter_.font());
  int widest = 0;
  for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
  return {widest + 10.0, metrics.height() * static_cast<double>(lines.size()) + 4};
}

void ViewMarks::note(const QPointF& at, const QString& text) {
  QRectF box(at, sizeOf({text}));
  if (box.right() > viewport_.size.width()) box.moveRight(at.x() - 24);
  if (box.bottom() > viewport_.size.height()) box.moveBottom(at.y() - 24);
  boxed(box, {text});
}

void ViewMarks::programNote(const QPointF& cursor, const Transients& drawn, NoteCorner& corner) {
  std::vector<QLineF> lines;
  lines.reserve(drawn.vectors.size());
  for (const TransientVector& v : drawn.vectors) lines.emplace_back(viewport_.pixel(v.from), viewport_.pixel(v.to));
  const QStringList words = QString::fromStdString(drawn.note).split(" | ");
  boxed(placeOfNote(cursor, sizeOf(words), viewport_.size, lines, corner), words);
}

void ViewMarks::boxed(const QRectF& box, const QStringList& lines) {
  painter_.fillRect(box, dark_ ? QColor(60, 63, 65, 220) : QColor(250, 250, 235, 230));
  painter_.setPen(dark_ ? Qt::white : Qt::black);
  painter_.drawText(box.adjusted(5, 2, -5, -2), Qt::AlignLeft, lines.join('\n'));
}

}  // namespace atelier::desktop
