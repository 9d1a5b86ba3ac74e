// The pictures of a form: lines by distance and altitude, or in plan, and lines that are dragged to change a number.
#pragma once
#include <QPixmap>
#include <QPointF>
#include <QVariant>
#include <QVector>
#include <QWidget>
#include <functional>
#include <optional>

namespace atelier::desktop {

class FormPicture : public QWidget {
 public:
  explicit FormPicture(QWidget* parent);
  // One picture as (title mode items station) of the front-end; in mode "plan" both directions have one scale, in mode
  // "tableau" units are pixels from the upper left corner down.
  void show(const QVariant& picture);
  // A line that is dragged: the numbers that go with it, of fields or of cells by their keys, and what each changes by since the
  // press of the button.
  // How far a number goes, and what a pixel of the picture is worth.
  struct Change {
    QString path;
    double by, pixel;
  };
  using Changes = QList<Change>;
  std::function<void(const Changes& changes, bool released)> onDragged;
  // A small picture of items in pixels, as mode "tableau" has them, from its upper left corner.
  static QPixmap drawn(const QVariant& items, QSize size, const QWidget& like);
  // Where a point of the picture is, in pixels of the widget.
  QPointF at(QPointF point) const;

  QSize sizeHint() const override { return {600, 320}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  struct Item {
    QString kind, role, words, up, along;  // up, along: the keys of the numbers that go with the hand; empty for none
    QVector<QPointF> points;
    double sense = 1, angle = 0;  // angle: of a text, in degrees to the left
  };
  struct Drag {
    QString up, along;
    double sense;
    QPointF from;
  };
  static Item itemOf(const QVariantList& parts);
  void fit();
  void paint(QPainter& painter, const Item& item) const;
  void paintScales(QPainter& painter) const;
  const Item* handleAt(QPointF pixel) const;
  void tell(const Drag& drag, QPointF pixel, bool released) const;
  QPointF pointAt(QPointF pixel) const;

  QString title_;
  QString mode_;
  double station_ = 0;  // of the abscissa 0
  QVector<Item> items_;
  QRectF extent_;  // in the picture's units, y up
  std::optional<Drag> drag_;
};

}  // namespace atelier::desktop
