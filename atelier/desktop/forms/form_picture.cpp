// While a line is dragged the scales stay, so that the line follows the hand.
#include "atelier/desktop/forms/form_picture.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <limits>

namespace atelier::desktop {
namespace {

constexpr double kEdge = 12, kScaleRoom = 46, kReach = 6;  // pixels
constexpr int kTicks = 6, kLeastTable = 490;
constexpr int kSmallText = 10;
constexpr double kHold = 3;  // pixels, half of a handle that is one point

// "#RRGGBB pixels dash gap ...", dashes and gaps in pixels too.
QPen samplePen(const QStringList& words) {
  QPen pen(QColor(words.value(0)), std::max(1.0, words.value(1).toDouble()));
  QList<qreal> dashes;
  for (const QString& word : words.mid(2)) dashes << std::max(0.1, std::abs(word.toDouble()) / pen.widthF());
  if (!dashes.isEmpty()) pen.setDashPattern(dashes);
  return pen;
}

QPen penOf(const QString& role, const QPalette& palette) {
  if (role.startsWith('#')) return samplePen(role.split(' '));
  if (role == "terrain") return {QColor(140, 90, 40), 1.8};
  if (role == "plan") return {QColor(60, 120, 200), 1.2};
  if (role == "ligne") return {QColor(120, 120, 130), 1.2};
  if (role == "projet" || role == "axe") return {QColor(210, 40, 40), 2.0};
  if (role == "couloir") return {QColor(230, 140, 0), 2.0, Qt::DashLine};
  if (role == "fenetre") return {QColor(140, 60, 180), 1.2};
  if (role == "surface") return {QColor(150, 165, 150), 0.8};
  return {palette.color(QPalette::Text), 1.0};
}

QVector<QPointF> pointsOf(const QVariant& list) {
  QVector<QPointF> points;
  for (const QVariant& pair : list.toList())
    points << QPointF(pair.toList().value(0).toDouble(), pair.toList().value(1).toDouble());
  return points;
}

// 1, 2 or 5 times a power of ten, so that a range has at most so many steps.
double roundStep(double range, int most) {
  const double power = std::pow(10, std::floor(std::log10(range / most)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (range / (factor * power) <= most) return factor * power;
  return 10 * power;
}

double distanceTo(QPointF p, QPointF a, QPointF b) {
  const QPointF along = b - a;
  const double square = QPointF::dotProduct(along, along);
  const double part = square > 0 ? std::clamp(QPointF::dotProduct(p - a, along) / square, 0.0, 1.0) : 0;
  const QPointF away = p - (a + part * along);
  return std::hypot(away.x(), away.y());
}

}  // namespace

FormPicture::FormPicture(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setMinimumSize(360, 180);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

FormPicture::Item FormPicture::itemOf(const QVariantList& parts) {
  Item item{parts.value(0).toString(), parts.value(1).toString(), {}, {}, {}, {}, 1, 0};
  if (item.kind == "trait") {
    item.points = pointsOf(parts.value(2));
  } else if (item.kind == "texte") {
    item.points = pointsOf(QVariantList{parts.value(2)});
    item.words = parts.value(3).toString();
    item.angle = parts.value(4).toDouble();
  } else {
    item.up = parts.value(1).toString();
    item.role = parts.value(2).toString();
    item.points = pointsOf(parts.value(3));
    item.sense = parts.value(4).toDouble();
    item.along = parts.value(5).toString();
  }
  return item;
}

void FormPicture::show(const QVariant& picture) {
  const QVariantList parts = picture.toList();
  title_ = parts.value(0).toString();
  mode_ = parts.value(1).toString();
  station_ = parts.value(3).toDouble();
  items_.clear();
  for (const QVariant& item : parts.value(2).toList()) items_ << itemOf(item.toList());
  if (!drag_) fit();
  if (mode_ == "tableau")
    setMinimumSize(std::min(kLeastTable, static_cast<int>(extent_.width() + 2 * kEdge)),
                   static_cast<int>(extent_.height() + 2 * kEdge));
  update();
}

void FormPicture::fit() {
  constexpr double kFar = std::numeric_limits<double>::max();
  double left = kFar, right = -kFar, low = kFar, high = -kFar;
  for (const Item& item : items_)
    for (const QPointF& p : item.points) {
      left = std::min(left, p.x()), right = std::max(right, p.x());
      low = std::min(low, p.y()), high = std::max(high, p.y());
    }
  extent_ =
      left > right ? QRectF(0, 0, 1, 1) : QRectF(left, low, std::max(right - left, 1e-6), std::max(high - low, 1e-6));
}

QPointF FormPicture::at(QPointF point) const {
  if (mode_ == "tableau") return {kEdge + point.x(), kEdge - point.y()};
  const QRectF room = QRectF(rect()).adjusted(kScaleRoom, 2 * kEdge, -kEdge, -2 * kEdge);
  double x = room.width() / extent_.width(), y = room.height() / extent_.height();
  if (mode_ == "plan") x = y = std::min(x, y);
  return {room.left() + (point.x() - extent_.left()) * x, room.bottom() - (point.y() - extent_.top()) * y};
}

QPointF FormPicture::pointAt(QPointF pixel) const {
  const QPointF origin = at(extent_.topLeft()), one = at(extent_.topLeft() + QPointF(1, 1));
  return extent_.topLeft() +
         QPointF((pixel.x() - origin.x()) / (one.x() - origin.x()), (pixel.y() - origin.y()) / (one.y() - origin.y()));
}

const FormPicture::Item* FormPicture::handleAt(QPointF pixel) const {
  const Item* best = nullptr;
  double reach = kReach;
  for (const Item& item : items_) {
    if (item.kind != "poignee") continue;
    for (qsizetype i = 0; i < item.points.size(); ++i)
      if (const double away = distanceTo(pixel, at(item.points[std::max<qsizetype>(i - 1, 0)]), at(item.points[i]));
          away <= reach) {
        reach = away;
        best = &item;
      }
  }
  return best;
}

void FormPicture::tell(const Drag& drag, QPointF pixel, bool released) const {
  const QPointF change = pointAt(pixel) - drag.from;
  const QPointF worth = pointAt(pixel + QPointF(1, 1)) - pointAt(pixel);
  // The way up last: it counts where the front-end fills it in for a place.
  Changes changes;
  if (!drag.along.isEmpty()) changes << Change{drag.along, change.x(), std::abs(worth.x())};
  changes << Change{drag.up, drag.sense * change.y(), std::abs(drag.sense * worth.y())};
  if (onDragged) onDragged(changes, released);
}

void FormPicture::mousePressEvent(QMouseEvent* event) {
  if (const Item* const handle = handleAt(event->position()); handle && event->button() == Qt::LeftButton)
    drag_ = Drag{handle->up, handle->along, handle->sense, pointAt(event->position())};
}

void FormPicture::mouseMoveEvent(QMouseEvent* event) {
  if (drag_) return tell(Drag(*drag_), event->position(), false);
  const Item* const handle = handleAt(event->position());
  setCursor(!handle ? Qt::ArrowCursor : handle->along.isEmpty() ? Qt::SizeVerCursor : Qt::SizeAllCursor);
}

void FormPicture::mouseReleaseEvent(QMouseEvent* event) {
  if (!drag_) return;
  const Drag drag = *drag_;
  drag_.reset();
  tell(drag, event->position(), true);
}

void FormPicture::paintScales(QPainter& painter) const {
  const bool empty = items_.isEmpty();
  painter.setPen(palette().color(QPalette::PlaceholderText));
  if (empty || mode_ != "profil") return;
  const double up = roundStep(extent_.height(), kTicks), along = roundStep(extent_.width(), kTicks);
  for (double z = std::ceil(extent_.top() / up) * up; z <= extent_.bottom() + 1e-9; z += up) {
    const QPointF p = at({extent_.left(), z});
    painter.drawText(QRectF(0, p.y() - 8, kScaleRoom - 6, 16), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(z, 'f', up < 1 ? 1 : 0));
  }
  for (double d = std::ceil((extent_.left() + station_) / along) * along; d <= extent_.right() + station_ + 1e-9;
       d += along) {
    const QPointF p = at({d - station_, extent_.top()});
    painter.drawText(QRectF(p.x() - 40, p.y() + 3, 80, 16), Qt::AlignHCenter | Qt::AlignTop,
                     QString::number(d, 'f', along < 1 ? 1 : 0));
  }
}

void FormPicture::paint(QPainter& painter, const Item& item) const {
  painter.setPen(penOf(item.role, palette()));
  QPolygonF line;
  for (const QPointF& p : item.points) line << at(p);
  if (item.kind == "texte") {
    if (line.isEmpty()) return;
    painter.save();
    painter.translate(line.front());
    painter.rotate(-item.angle);
    const bool level = item.angle == 0 && mode_ != "tableau";
    // A level word at the right edge is drawn as far left as it has to be seen whole.
    const double over = line.front().x() + 3 + painter.fontMetrics().horizontalAdvance(item.words) - width() + 2;
    painter.drawText(
        QPointF((item.angle != 0 ? 0 : 3) - (level ? std::max(0.0, over) : 0), mode_ == "tableau" ? 0 : -3),
        item.words);
    painter.restore();
  } else if (line.size() == 1) {
    painter.drawRect(QRectF(line.front() - QPointF(kHold, kHold), QSizeF(2 * kHold, 2 * kHold)));
  } else {
    painter.drawPolyline(line);
  }
}

QPixmap FormPicture::drawn(const QVariant& items, QSize size, const QWidget& like) {
  FormPicture picture(nullptr);
  picture.show(QVariantList{QString(), QStringLiteral("tableau"), items, 0.0});
  QPixmap pixmap(size * like.devicePixelRatioF());
  pixmap.setDevicePixelRatio(like.devicePixelRatioF());
  pixmap.fill(like.palette().color(QPalette::Base));
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont font = like.font();
  font.setPixelSize(kSmallText);
  painter.setFont(font);
  painter.translate(-kEdge, -kEdge);
  for (const Item& item : picture.items_) picture.paint(painter, item);
  return pixmap;
}

void FormPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  paintScales(painter);
  for (const Item& item : items_) paint(painter, item);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(QRectF(rect()).adjusted(6, 2, -6, 0), Qt::AlignTop | Qt::AlignRight, title_);
}

}  // namespace atelier::desktop
