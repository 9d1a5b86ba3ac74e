// Two convex figures are apart when they are along the direction of one of their sides.
#include "etudes/habillage/boites.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace etu {

namespace {

constexpr double kJeu = 1e-9;  // drawing units: figures that share an edge don't touch

bool separees(const std::array<point2, 4>& a, const std::array<point2, 4>& b, double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  const auto etendue = [&](const std::array<point2, 4>& coins) {
    double bas = std::numeric_limits<double>::infinity(), haut = -bas;
    for (const point2& p : coins) {
      const double d = c * p.x + s * p.y;
      bas = std::min(bas, d), haut = std::max(haut, d);
    }
    return std::array{bas, haut};
  };
  const auto [basA, hautA] = etendue(a);
  const auto [basB, hautB] = etendue(b);
  return hautA <= basB + kJeu || hautB <= basA + kJeu;
}

}  // namespace

std::array<point2, 4> boite::coins() const {
  const double c = std::cos(angle), s = std::sin(angle), u = largeur / 2, v = hauteur / 2;
  const auto coin = [&](double a, double b) { return point2{x + a * c - b * s, y + a * s + b * c}; };
  return {coin(-u, -v), coin(u, -v), coin(u, v), coin(-u, v)};
}

double boite::demiX() const { return (std::abs(largeur * std::cos(angle)) + std::abs(hauteur * std::sin(angle))) / 2; }

double boite::demiY() const { return (std::abs(largeur * std::sin(angle)) + std::abs(hauteur * std::cos(angle))) / 2; }

bool seTouchent(const boite& a, const boite& b) {
  if (std::abs(a.x - b.x) > a.demiX() + b.demiX() || std::abs(a.y - b.y) > a.demiY() + b.demiY()) return false;
  const double droit = std::acos(0.0);
  const auto ca = a.coins(), cb = b.coins();
  for (const double angle : {a.angle, a.angle + droit, b.angle, b.angle + droit})
    if (separees(ca, cb, angle)) return false;
  return true;
}

}  // namespace etu
