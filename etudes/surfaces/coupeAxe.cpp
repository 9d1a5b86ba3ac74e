// Points near an axis: those beside a chord are found among the points sorted by x.
#include "etudes/surfaces/coupeAxe.h"

#include <numeric>

namespace etu {

namespace {

struct pied {
  double ecart, station, z;
};

// The foot of p on the chord; beyond a bend the bend itself, beyond an end of the axis none.
bool piedSur(const piedAxe& a, const piedAxe& b, const point3& p, bool premiere, bool derniere, pied& resultat) {
  const double ux = b.x - a.x, uy = b.y - a.y, l2 = ux * ux + uy * uy;
  double t = ((p.x - a.x) * ux + (p.y - a.y) * uy) / l2;
  const double marge = 1e-9;
  if ((t < -marge && premiere) || (t > 1 + marge && derniere)) return false;
  t = std::clamp(t, 0.0, 1.0);
  resultat = {std::hypot(p.x - a.x - t * ux, p.y - a.y - t * uy), a.station + t * (b.station - a.station), p.z};
  return true;
}

}  // namespace

morceau profilDesPoints(const std::vector<piedAxe>& pieds, const std::vector<point3>& points, double distance) {
  std::vector<std::size_t> ordre(points.size());
  std::iota(ordre.begin(), ordre.end(), 0);
  std::sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) { return points[a].x < points[b].x; });
  std::vector<pied> trouves(points.size(), {HUGE_VAL, 0, 0});
  for (std::size_t i = 0; i + 1 < pieds.size(); ++i) {
    const piedAxe &a = pieds[i], &b = pieds[i + 1];
    const double gauche = std::min(a.x, b.x) - distance, droite = std::max(a.x, b.x) + distance;
    auto k =
        std::lower_bound(ordre.begin(), ordre.end(), gauche, [&](std::size_t n, double x) { return points[n].x < x; });
    pied p{};
    for (; k != ordre.end() && points[*k].x <= droite; ++k)
      if (piedSur(a, b, points[*k], i == 0, i + 2 == pieds.size(), p) && p.ecart <= distance &&
          p.ecart < trouves[*k].ecart)
        trouves[*k] = p;
  }
  std::erase_if(trouves, [](const pied& p) { return p.ecart == HUGE_VAL; });
  std::sort(trouves.begin(), trouves.end(), [](const pied& a, const pied& b) {
    return a.station != b.station ? a.station < b.station : a.ecart < b.ecart;
  });
  morceau m;
  for (const pied& p : trouves)
    if (m.empty() || p.station > m.back().station + kJoint) m.push_back({p.station, p.z});
  return m.size() < 2 ? morceau{} : m;
}

std::optional<double> piedLePlusProche(const std::vector<piedAxe>& pieds, const point3& point, double distance) {
  pied meilleur{distance, 0, 0}, p{};
  bool trouve = false;
  for (std::size_t i = 0; i + 1 < pieds.size(); ++i)
    if (piedSur(pieds[i], pieds[i + 1], point, i == 0, i + 2 == pieds.size(), p) && p.ecart <= meilleur.ecart)
      meilleur = p, trouve = true;
  return trouve ? std::optional(meilleur.station) : std::nullopt;
}

}  // namespace etu
