// Each icon is a few strokes on a grid of 24: "M x y L x y ..." with A for an accent stroke.
#include "atelier/desktop/window/icons.h"

#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace atelier::desktop {
namespace {

constexpr int kGrid = 24;
const QColor kAccent(220, 90, 30);

// Commands: M and L take a point, C three, Z none; those of the accent colour come after "|".
const QHash<QString, QString>& shapes() {
  static const QHash<QString, QString> table{
      {"nouveau", "M 6 3 L 14 3 L 19 8 L 19 21 L 6 21 Z M 14 3 L 14 8 L 19 8 | M 12 12 L 12 18 M 9 15 L 15 15"},
      {"ouvrir", "M 3 19 L 3 5 L 9 5 L 11 8 L 20 8 L 20 11 M 3 19 L 7 11 L 22 11 L 18 19 Z"},
      {"enregistrer", "M 4 4 L 17 4 L 20 7 L 20 20 L 4 20 Z M 8 4 L 8 9 L 15 9 L 15 4 | M 8 20 L 8 14 L 16 14 L 16 20"},
      {"annuler", "M 8 5 L 4 9 L 8 13 M 4 9 L 14 9 C 22 9 22 19 14 19 L 10 19"},
      {"retablir", "M 16 5 L 20 9 L 16 13 M 20 9 L 10 9 C 2 9 2 19 10 19 L 14 19"},
      {"etendu",
       "M 4 9 L 4 4 L 9 4 M 15 4 L 20 4 L 20 9 M 20 15 L 20 20 L 15 20 M 9 20 L 4 20 L 4 15 | M 8 14 L 11 11 L 13 13 L "
       "16 9"},
      {"fenetre", "M 4 4 L 15 4 L 15 15 L 4 15 Z | M 14 14 L 21 21"},
      {"profil", "M 3 20 L 21 20 M 3 20 L 3 4 | M 3 14 L 8 9 L 12 12 L 17 6 L 21 10"},
      {"tableaux", "M 3 5 L 21 5 L 21 19 L 3 19 Z M 3 10 L 21 10 M 3 14 L 21 14 | M 9 5 L 9 19"},
      {"projet", "M 3 12 L 8 7 L 12 10 L 17 4 L 21 8 | M 3 18 L 10 16 C 14 15 16 17 21 12"},
      {"plan", "M 3 20 L 11 20 M 11 15 L 21 15 M 11 20 L 11 15 | M 3 10 L 8 6 L 12 9 L 21 4"},
      {"optimal", "M 3 7 L 9 4 L 15 8 L 21 5 M 3 20 L 9 17 L 15 21 L 21 18 | M 3 13 L 11 11 L 21 12"},
      {"metres", "M 3 6 L 21 6 L 21 18 L 3 18 Z | M 3 18 L 9 6 M 9 18 L 15 6 M 15 18 L 21 6"},
      {"tracer", "M 7 9 L 7 3 L 17 3 L 17 9 M 4 9 L 20 9 L 20 17 L 4 17 Z | M 7 14 L 17 14 L 17 21 L 7 21 Z"},
  };
  return table;
}

void strokes(QPainter& painter, const QString& shape, const QColor& colour) {
  QPainterPath path;
  const QStringList words = shape.split(' ', Qt::SkipEmptyParts);
  qsizetype i = 0;
  const auto point = [&] {
    const double x = words.value(i++).toDouble();
    return QPointF(x, words.value(i++).toDouble());
  };
  while (i < words.size()) {
    const QString verb = words[i++];
    if (verb == "M") path.moveTo(point());
    if (verb == "L") path.lineTo(point());
    if (verb == "Z") path.closeSubpath();
    if (verb == "C") {
      const QPointF a = point(), b = point(), c = point();
      path.cubicTo(a, b, c);
    }
  }
  painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

}  // namespace

QIcon iconNamed(const QString& name) {
  const QString shape = shapes().value(name);
  if (shape.isEmpty()) return {};
  const QStringList parts = shape.split('|');
  QIcon icon;
  for (const int size : {24, 32, 48}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(size) / kGrid, static_cast<double>(size) / kGrid);
    strokes(painter, parts[0], QGuiApplication::palette().color(QPalette::WindowText));
    if (parts.size() > 1) strokes(painter, parts[1], kAccent);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace atelier::desktop
