// Where chords cross outlines, and which parts between the crossings lie inside.
#include "etudes/surfaces/limites.h"

namespace etu {

namespace {

using contour = std::vector<piedAxe>;  // its last point joins the first one

bool contient(const contour& c, double x, double y) {
  bool dedans = false;
  for (std::size_t i = 0, j = c.size() - 1; i < c.size(); j = i++)
    if ((c[i].y > y) != (c[j].y > y) && x < c[j].x + (c[i].x - c[j].x) * (y - c[j].y) / (c[i].y - c[j].y))
      dedans = !dedans;
  return dedans;
}

void croisements(const contour& c, const piedAxe& a, const piedAxe& b, std::vector<double>& parts) {
  const double ux = b.x - a.x, uy = b.y - a.y;
  for (std::size_t i = 0, j = c.size() - 1; i < c.size(); j = i++) {
    const double vx = c[i].x - c[j].x, vy = c[i].y - c[j].y, wx = c[j].x - a.x, wy = c[j].y - a.y;
    const double det = ux * vy - uy * vx;
    if (det == 0) continue;
    const double t = (wx * vy - wy * vx) / det, u = (wx * uy - wy * ux) / det;
    if (t > 0 && t < 1 && u >= 0 && u <= 1) parts.push_back(t);
  }
}

std::vector<contour> contoursDe(const std::vector<axePlan>& axes) {
  std::vector<contour> contours;
  for (const axePlan& a : axes)
    if (contour c = cordes(a); c.size() > 2) contours.push_back(std::move(c));
  return contours;
}

}  // namespace

std::vector<intervalle> dansLimites(const limites& l, const std::vector<piedAxe>& pieds) {
  const std::vector<contour> contours = contoursDe(l.contours), trous = contoursDe(l.trous);
  const auto voulu = [&](double x, double y) {
    const auto dans = [&](const contour& c) { return contient(c, x, y); };
    return (contours.empty() || std::any_of(contours.begin(), contours.end(), dans)) &&
           std::none_of(trous.begin(), trous.end(), dans);
  };
  std::vector<intervalle> resultat;
  std::vector<double> parts;
  for (std::size_t i = 0; i + 1 < pieds.size(); ++i) {
    const piedAxe &a = pieds[i], &b = pieds[i + 1];
    parts = {0, 1};
    for (const contour& c : contours) croisements(c, a, b, parts);
    for (const contour& c : trous) croisements(c, a, b, parts);
    std::sort(parts.begin(), parts.end());
    for (std::size_t k = 0; k + 1 < parts.size(); ++k) {
      const double milieu = 0.5 * (parts[k] + parts[k + 1]), l1 = b.station - a.station;
      if (parts[k] == parts[k + 1] || !voulu(a.x + milieu * (b.x - a.x), a.y + milieu * (b.y - a.y))) continue;
      const double debut = a.station + parts[k] * l1, fin = a.station + parts[k + 1] * l1;
      if (!resultat.empty() && debut <= resultat.back().fin + kJoint) resultat.back().fin = fin;
      else resultat.push_back({debut, fin});
    }
  }
  return resultat;
}

}  // namespace etu
