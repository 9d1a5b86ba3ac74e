// Lengths and chords of an axis. An arc of opening w leaves its chord by w/2 to the right when it turns left.
#include "etudes/surfaces/axe.h"

#include <numeric>

namespace etu {

namespace {

constexpr double kDroit = 1e-12, kSansLongueur = 1e-9, kCordesParArc = 1e6;

struct segmentAxe {
  double corde, direction, ouverture, rayon, longueur;  // the radius is that of an arc
};

segmentAxe segment(const sommetAxe& a, const sommetAxe& b) {
  segmentAxe s{std::hypot(b.x - a.x, b.y - a.y), std::atan2(b.y - a.y, b.x - a.x), 4 * std::atan(a.bulbe), 0, 0};
  if (std::abs(a.bulbe) < kDroit) {
    s.ouverture = 0, s.longueur = s.corde;
  } else {
    s.rayon = s.corde * (1 + a.bulbe * a.bulbe) / (4 * std::abs(a.bulbe));
    s.longueur = s.rayon * std::abs(s.ouverture);
  }
  return s;
}

// The place on a segment at a part of its length; z goes evenly along it.
point3 placeSur(const sommetAxe& a, const sommetAxe& b, const segmentAxe& s, double part) {
  const double z = a.z + part * (b.z - a.z);
  if (s.ouverture == 0) return {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y), z};
  const double angle = 0.5 * part * s.ouverture, corde = 2 * s.rayon * std::abs(std::sin(angle));
  const double direction = s.direction - 0.5 * s.ouverture + angle;
  return {a.x + corde * std::cos(direction), a.y + corde * std::sin(direction), z};
}

// How many chords keep to an arc within the rise.
int nombreDeCordes(const segmentAxe& s, double fleche) {
  if (s.ouverture == 0) return 1;
  const double pas = s.rayon <= fleche ? 1 : 2 * std::acos(1 - fleche / s.rayon);
  return static_cast<int>(std::clamp(std::ceil(std::abs(s.ouverture) / pas), 1.0, kCordesParArc));
}

bool secoupent(const piedAxe& a, const piedAxe& b, const piedAxe& c, const piedAxe& d, piedAxe& lieu) {
  const double ux = b.x - a.x, uy = b.y - a.y, vx = d.x - c.x, vy = d.y - c.y;
  const double det = ux * vy - uy * vx;
  if (det == 0) return false;
  const double t = ((c.x - a.x) * vy - (c.y - a.y) * vx) / det, u = ((c.x - a.x) * uy - (c.y - a.y) * ux) / det;
  if (t < 0 || t > 1 || u < 0 || u > 1) return false;
  lieu = {a.station + t * (b.station - a.station), a.x + t * ux, a.y + t * uy, 0};
  return true;
}

}  // namespace

double longueur(const axePlan& axe) {
  double total = 0;
  for (std::size_t i = 0; i + 1 < axe.size(); ++i) total += segment(axe[i], axe[i + 1]).longueur;
  return total;
}

etendue etendueDe(const axePlan& axe) {
  etendue e;
  for (const piedAxe& p : cordes(axe, 1.0)) e.prendre(p.x, p.y);
  return e;
}

axePlan inverse(const axePlan& axe) {
  axePlan retour(axe.rbegin(), axe.rend());
  for (std::size_t i = 0; i + 1 < retour.size(); ++i) retour[i].bulbe = -retour[i + 1].bulbe;
  if (!retour.empty()) retour.back().bulbe = 0;
  return retour;
}

axePlan depuis(const axePlan& axe, double distance) {
  for (std::size_t i = 0; i + 1 < axe.size(); ++i) {
    const segmentAxe s = segment(axe[i], axe[i + 1]);
    if (distance < s.longueur - kSansLongueur) {
      const double part = std::max(0.0, distance / s.longueur);
      const point3 p = placeSur(axe[i], axe[i + 1], s, part);
      axePlan reste{{p.x, p.y, p.z, s.ouverture == 0 ? 0 : std::tan(0.25 * (1 - part) * s.ouverture)}};
      reste.insert(reste.end(), axe.begin() + static_cast<std::ptrdiff_t>(i) + 1, axe.end());
      return reste;
    }
    distance -= s.longueur;
  }
  return {};
}

std::vector<piedAxe> cordes(const axePlan& axe, double fleche) {
  std::vector<piedAxe> pieds;
  if (axe.empty()) return pieds;
  double station = 0;
  pieds.push_back({0, axe[0].x, axe[0].y, axe[0].z});
  for (std::size_t i = 0; i + 1 < axe.size(); ++i) {
    const sommetAxe &a = axe[i], &b = axe[i + 1];
    const segmentAxe s = segment(a, b);
    if (s.longueur < kSansLongueur) continue;
    const int nombre = nombreDeCordes(s, fleche);
    for (int k = 1; k < nombre; ++k) {
      const double part = static_cast<double>(k) / nombre;
      const point3 p = placeSur(a, b, s, part);
      pieds.push_back({station + part * s.longueur, p.x, p.y, p.z});
    }
    station += s.longueur;
    pieds.push_back({station, b.x, b.y, b.z});
  }
  return pieds;
}

std::optional<piedAxe> croisementPropre(const std::vector<piedAxe>& pieds) {
  if (pieds.size() < 4) return {};
  std::vector<std::size_t> ordre(pieds.size() - 1), actifs;
  std::iota(ordre.begin(), ordre.end(), 0);
  const auto gauche = [&](std::size_t i) { return std::min(pieds[i].x, pieds[i + 1].x); };
  const auto droite = [&](std::size_t i) { return std::max(pieds[i].x, pieds[i + 1].x); };
  std::sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) { return gauche(a) < gauche(b); });
  std::optional<piedAxe> premier;
  for (const std::size_t i : ordre) {
    std::erase_if(actifs, [&](std::size_t j) { return droite(j) < gauche(i); });
    for (const std::size_t j : actifs) {
      const std::size_t a = std::min(i, j), b = std::max(i, j);
      const bool boucle = a == 0 && b == pieds.size() - 2 &&
                          std::hypot(pieds[0].x - pieds[b + 1].x, pieds[0].y - pieds[b + 1].y) < 1e-6;
      piedAxe lieu;
      if (b > a + 1 && !boucle && secoupent(pieds[a], pieds[a + 1], pieds[b], pieds[b + 1], lieu) &&
          (!premier || lieu.station < premier->station))
        premier = lieu;
    }
    actifs.push_back(i);
  }
  return premier;
}

}  // namespace etu
