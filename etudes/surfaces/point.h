// Points of a survey and the extent of many, in metres; and the sentence with which work on them ends.
#pragma once
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace etu {

struct point3 {
  double x = 0, y = 0, z = 0;
};

struct etendue {
  double xMin = std::numeric_limits<double>::infinity(), yMin = xMin, xMax = -xMin, yMax = -xMin;

  bool vide() const { return !(xMin <= xMax); }
  void prendre(double x, double y) {
    xMin = std::min(xMin, x), xMax = std::max(xMax, x);
    yMin = std::min(yMin, y), yMax = std::max(yMax, y);
  }
  void prendre(const etendue& e) {
    if (!e.vide()) prendre(e.xMin, e.yMin), prendre(e.xMax, e.yMax);
  }
  bool touche(const etendue& e) const { return xMin <= e.xMax && e.xMin <= xMax && yMin <= e.yMax && e.yMin <= yMax; }
  double diagonale() const { return vide() ? 0 : std::hypot(xMax - xMin, yMax - yMin); }
};

// What a source can't be used for, as a French sentence for the user; handlers give it to AutoLISP as a text.
struct refus {
  std::wstring texte;
};

}  // namespace etu
