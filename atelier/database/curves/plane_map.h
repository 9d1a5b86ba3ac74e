// A matrix as it acts on the coordinates of an entity's plane.
// Inner header of the rooms of entities.
#pragma once
#include <cmath>

#include "hote/ge.h"

namespace atelier {

struct PlaneMap {
  AcGePoint2d origin;
  AcGeVector2d x{1, 0}, y{0, 1};  // what becomes of the axes

  AcGePoint2d operator()(const AcGePoint2d& p) const { return origin + x * p.x + y * p.y; }
  AcGeVector2d operator()(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
  double determinant() const { return x.x * y.y - x.y * y.x; }
  bool mirrors() const { return determinant() < 0; }
  bool onlyMoves() const { return x.x == 1 && x.y == 0 && y.x == 0 && y.y == 1; }
  // Circles stay circles.
  bool keepsAngles() const {
    constexpr double kEven = 1e-9;
    const double size = x.dotProduct(x) + y.dotProduct(y);
    return std::abs(x.dotProduct(y)) <= kEven * size && std::abs(x.dotProduct(x) - y.dotProduct(y)) <= kEven * size;
  }
  double turn() const { return std::atan2(x.y, x.x); }  // of the x axis, radians
};

}  // namespace atelier
