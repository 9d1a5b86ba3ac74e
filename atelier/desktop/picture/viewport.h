// Maps between the drawing and the pixels of its view.
#pragma once
#include <QPointF>
#include <QSize>
#include <algorithm>

#include "atelier/document/document.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::desktop {

// The part of the drawing that a view of so many pixels shows.
struct Viewport {
  double x = 0, y = 0;  // centre, drawing units
  double unitsPerPixel = 1;
  QSize size;  // pixels of the widget

  static Viewport of(const View& view, QSize size) {
    return {view.centre.x, view.centre.y, view.height / std::max(1, size.height()), size};
  }
  AcGePoint3d world(QPointF pixel) const {
    return {x + (pixel.x() - size.width() / 2.0) * unitsPerPixel, y - (pixel.y() - size.height() / 2.0) * unitsPerPixel,
            0};
  }
  QPointF pixel(double wx, double wy) const {
    return {size.width() / 2.0 + (wx - x) / unitsPerPixel, size.height() / 2.0 - (wy - y) / unitsPerPixel};
  }
  QPointF pixel(const AcGePoint3d& p) const { return pixel(p.x, p.y); }
  // From drawing units to pixels times `ratio`.
  render::Affine toPixels(double ratio) const {
    const double k = ratio / unitsPerPixel;
    return {k, 0, 0, -k, size.width() * ratio / 2.0 - x * k, size.height() * ratio / 2.0 + y * k};
  }
  bool operator==(const Viewport&) const = default;
};

}  // namespace atelier::desktop
