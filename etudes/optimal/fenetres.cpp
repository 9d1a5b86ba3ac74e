// From the start, the fan of lines is led from door to door until none of its lines passes; the line that comes farthest is
// the window, and the next fan starts from it. Of the corridor before the window only the side counts that the next run can
// touch after it has crossed the window; so each door is looked at twice at most.
#include "etudes/optimal/fenetres.h"

#include <algorithm>
#include <cmath>

#include "etudes/base/arret.h"
#include "etudes/optimal/faisceau.h"

namespace etu {

namespace {

struct droite {
  pointGrille gauche, droite;
};

class recherche {
 public:
  explicit recherche(const couloir& c) : m_couloir(c), m_x0(c.debut()), m_y0(c.portes.front().passage.bas) {}
  std::optional<parcours> faire();

 private:
  // Rounded towards the origin, which is nearer than the margin by which limits are moved.
  std::int64_t x(double distance) const { return static_cast<std::int64_t>((distance - m_x0) * kParMetre); }
  std::int64_t y(double altitude, bool haut) const {
    return static_cast<std::int64_t>((altitude - m_y0) * kParMetre) + (haut ? kMargeGrille : -kMargeGrille);
  }
  pointGrille limite(std::size_t rang, bool haut) const {
    const porte& p = m_couloir.portes[rang];
    return {x(p.distance), y(haut ? p.passage.haut : p.passage.bas, haut), rang};
  }
  pointGrille limiteAvant(std::size_t rang, bool haut) const {
    const limites l = m_couloir.avant(rang);
    return {x(m_couloir.portes[rang].distance), y(haut ? l.haut : l.bas, haut), rang};
  }
  pointGrille limiteApres(std::size_t rang, bool haut) const {
    const limites l = m_couloir.apres(rang);
    return {x(m_couloir.portes[rang].distance), y(haut ? l.haut : l.bas, haut), rang};
  }
  bool passer(std::size_t rang);
  std::optional<pointGrille> sortie(const droite& d, std::size_t rang, bool haut) const;
  template <class MANQUE, class SUIVI>
  void reprendre(std::size_t rang, MANQUE& manque, SUIVI& suivi);
  pointLigne enMetres(double gx, double gy) const { return {m_x0 + gx * kPasGrille, m_y0 + gy * kPasGrille}; }
  pointLigne surDroite(const droite& d, double gx) const;
  pointLigne croisement(const droite& a, const droite& b, const fenetre& f) const;
  ligneDroite ligne(const std::vector<droite>& droites, const std::vector<fenetre>& fenetres) const;

  const couloir& m_couloir;
  double m_x0, m_y0;
  bord<true> m_haut;
  bord<false> m_bas;
  bool m_manqueHaut = false;  // the side that the fan has missed
  std::vector<droite> m_droites;
  std::vector<fenetre> m_fenetres;
};

// Leads the fan through a door; false when no line passes.
bool recherche::passer(std::size_t rang) {
  const pointGrille haut = limite(rang, true), bas{haut.x, y(m_couloir.portes[rang].passage.bas, false), rang};
  m_manqueHaut = m_haut.manque(haut, m_bas);
  if (m_manqueHaut || m_bas.manque(bas, m_haut)) return false;
  m_haut.tendre(haut, m_bas);
  m_bas.tendre(bas, m_haut);
  m_haut.inserer(haut);
  m_bas.inserer(bas);
  return true;
}

// Where a line that passes the door before this one, and misses this one, meets the limit between them; nothing when it meets
// a step at this door.
std::optional<pointGrille> recherche::sortie(const droite& d, std::size_t rang, bool haut) const {
  const pointGrille a = limiteApres(rang - 1, haut), b = limiteAvant(rang, haut);
  const double ecartA = std::abs(static_cast<double>(hauteurSur(d.gauche, d.droite, a)));
  const entierLong hauteurB = hauteurSur(d.gauche, d.droite, b);
  if (haut ? hauteurB >= 0 : hauteurB <= 0) return std::nullopt;
  const double t = ecartA / (ecartA + std::abs(static_cast<double>(hauteurB)));
  const auto dx = static_cast<double>(b.x - a.x), dy = static_cast<double>(b.y - a.y);
  const std::int64_t pas = std::llrint(std::ceil(t * dx));
  if (a.x + pas >= b.x) return std::nullopt;
  const double z = dy * (static_cast<double>(pas) / dx);
  return pointGrille{a.x + pas, a.y + std::llrint(haut ? std::ceil(z) + 1 : std::floor(z) - 1), rang - 1};
}

// Begins a new fan at the window before this door, through the side that was missed.
template <class MANQUE, class SUIVI>
void recherche::reprendre(std::size_t rang, MANQUE& manque, SUIVI& suivi) {
  const droite d{suivi.gauche(), suivi.droite()};
  const auto bout = sortie(d, rang, MANQUE::kHaut);
  m_droites.push_back(d);
  const std::int64_t fin = bout ? bout->x : x(m_couloir.portes[rang].distance);
  m_fenetres.push_back({surDroite(d, static_cast<double>(d.droite.x)), surDroite(d, static_cast<double>(fin))});
  manque.vider();
  suivi.vider();
  suivi.inserer(d.droite);
  for (std::size_t i = d.droite.rang + 1; i < rang; ++i) suivi.inserer(limite(i, SUIVI::kHaut));
  if (!bout) return;
  manque.tendre(*bout, suivi);
  manque.inserer(*bout);
}

std::optional<parcours> recherche::faire() {
  std::size_t repris = 0;
  for (std::size_t rang = 0; rang < m_couloir.portes.size();) {
    demanderArret();
    if (passer(rang)) {
      ++rang;
      continue;
    }
    // From a window a line always reaches the next door, unless it is shut.
    if (repris == rang) return std::nullopt;
    repris = rang;
    if (m_manqueHaut) reprendre(rang, m_haut, m_bas);
    else reprendre(rang, m_bas, m_haut);
  }
  m_droites.push_back(m_haut.tendu() ? droite{m_haut.gauche(), m_haut.droite()}
                                     : droite{m_bas.gauche(), m_bas.droite()});
  return parcours{m_fenetres, ligne(m_droites, m_fenetres)};
}

pointLigne recherche::surDroite(const droite& d, double gx) const {
  const double t = (gx - static_cast<double>(d.gauche.x)) / static_cast<double>(d.droite.x - d.gauche.x);
  return enMetres(gx, static_cast<double>(d.gauche.y) + t * static_cast<double>(d.droite.y - d.gauche.y));
}

// Where the run b starts from the run a, on the window; its end for lines that are one to the last digits.
pointLigne recherche::croisement(const droite& a, const droite& b, const fenetre& f) const {
  const auto g = static_cast<double>(hauteurSur(b.gauche, b.droite, a.gauche)),
             d = static_cast<double>(hauteurSur(b.gauche, b.droite, a.droite));
  const double debut = (f.debut.distance - m_x0) * kParMetre, fin = (f.fin.distance - m_x0) * kParMetre;
  if (g == d) return surDroite(a, fin);
  const double gx = static_cast<double>(a.gauche.x) + g / (g - d) * static_cast<double>(a.droite.x - a.gauche.x);
  return surDroite(a, std::clamp(gx, debut, fin));
}

ligneDroite recherche::ligne(const std::vector<droite>& droites, const std::vector<fenetre>& fenetres) const {
  ligneDroite points{surDroite(droites.front(), 0)};
  for (std::size_t i = 0; i < fenetres.size(); ++i)
    points.push_back(croisement(droites[i], droites[i + 1], fenetres[i]));
  points.push_back(surDroite(droites.back(), (m_couloir.fin() - m_x0) * kParMetre));
  points.front().distance = m_couloir.debut();
  points.back().distance = m_couloir.fin();
  return points;
}

bool tient(const couloir& c) {
  const double y0 = c.portes.front().passage.bas;
  const auto loin = [y0](const limites& l) {
    return std::abs(l.bas - y0) > kPorteeGrille || std::abs(l.haut - y0) > kPorteeGrille;
  };
  return c.fin() - c.debut() <= kPorteeGrille &&
         std::none_of(c.portes.begin(), c.portes.end(), [&](const porte& p) { return loin(p.passage); }) &&
         std::none_of(c.marches.begin(), c.marches.end(),
                      [&](const marche& m) { return loin(m.avant) || loin(m.apres); });
}

}  // namespace

std::optional<parcours> moinsDeDroites(const couloir& c) {
  if (c.portes.size() < 2 || !tient(c)) return std::nullopt;
  return recherche(c).faire();
}

}  // namespace etu
