// An upper limit that rises faster than a line may is reached by no line: from there on a ramp is the limit. Seen from the right
// it is the same with the least slope, and so is a lower limit seen upside down. All four are one function.
#include "etudes/optimal/pentes.h"

#include <algorithm>
#include <cmath>

#include "module/profil/profilLong.h"

namespace etu {

namespace {

// A limit or a line as a function of straight runs, with steps where two points have one distance. The origin of a point on a ramp
// is the distance where the ramp begins.
struct pointSuivi {
  double distance, altitude, origine;
};
using suivie = std::vector<pointSuivi>;

// The greatest function below f that nowhere rises faster than the slope: at each place the least of all ramps from the left.
suivie sousRampe(const suivie& f, double pente) {
  suivie g;
  bool rampe = false;
  pointSuivi base{};
  for (std::size_t i = 0; i < f.size(); ++i) {
    const pointSuivi &p = f[i], &avant = f[i > 0 ? i - 1 : 0];
    const double dx = p.distance - avant.distance;
    if (i == 0) {
      g.push_back(p);
      continue;
    }
    if (!rampe && p.altitude - avant.altitude > pente * dx) {
      rampe = true;
      base = avant;
    }
    const double z = base.altitude + pente * (p.distance - base.distance);
    if (rampe && z >= p.altitude) {
      // Back on f, between the two points.
      const double zAvant = base.altitude + pente * (avant.distance - base.distance);
      const double a = avant.altitude - zAvant, b = z - p.altitude, t = a + b > 0 ? a / (a + b) : 1;
      if (t > 0 && t < 1 && dx > 0)
        g.push_back({avant.distance + t * dx, avant.altitude + t * (p.altitude - avant.altitude), base.origine});
      rampe = false;
    }
    g.push_back(rampe ? pointSuivi{p.distance, z, base.origine} : p);
  }
  return g;
}

suivie tournee(suivie f, bool droiteGauche, bool hautBas) {
  for (pointSuivi& p : f) {
    if (droiteGauche) p.distance = -p.distance, p.origine = -p.origine;
    if (hautBas) p.altitude = -p.altitude;
  }
  if (droiteGauche) std::reverse(f.begin(), f.end());
  return f;
}

// The upper limit within the slopes, from both sides; a lower one is handed over upside down, with the slopes turned as well.
suivie reduite(const suivie& f, const pentes& p) {
  return tournee(sousRampe(tournee(sousRampe(f, p.plusGrande), true, false), -p.moindre), true, false);
}

pentes retournees(const pentes& p) { return {-p.plusGrande, -p.moindre}; }

suivie limite(const couloir& c, bool haut) {
  suivie f;
  const auto poser = [&](double d, const limites& l) {
    const double z = haut ? l.haut : l.bas;
    if (f.empty() || f.back().distance != d || f.back().altitude != z) f.push_back({d, z, d});
  };
  for (std::size_t i = 0; i < c.portes.size(); ++i) {
    const double d = c.portes[i].distance;
    if (i > 0) poser(d, c.avant(i));
    poser(d, c.portes[i].passage);
    if (i + 1 < c.portes.size()) poser(d, c.apres(i));
  }
  return f;
}

// Walks along a function without steps; distances may not decrease.
class lecture {
 public:
  explicit lecture(const suivie& f) : m_f(f) {}
  pointSuivi en(double d) {
    while (m_i + 2 < m_f.size() && m_f[m_i + 1].distance <= d) ++m_i;
    const pointSuivi &a = m_f[m_i], &b = m_f[m_i + 1];
    if (d <= a.distance) return a;
    if (d >= b.distance) return b;
    const double t = (d - a.distance) / (b.distance - a.distance);
    const double origine = b.origine != b.distance ? b.origine : a.origine != a.distance ? a.origine : d;
    return {d, a.altitude + t * (b.altitude - a.altitude), origine};
  }

 private:
  const suivie& m_f;
  std::size_t m_i = 0;
};

constexpr double kToleranceDroite = 1e-11;  // metres: what the points of a ramp stand off it

// How far a point stands off the line through its neighbours; 0 for one that stands on the first.
double bombement(const pointLigne& a, const pointSuivi& p, const pointSuivi& b) {
  if (p.distance <= a.distance || b.distance <= p.distance) return 0;
  const double t = (p.distance - a.distance) / (b.distance - a.distance);
  return std::abs(p.altitude - a.altitude - t * (b.altitude - a.altitude));
}

void noter(std::optional<contradiction>& faute, const contradiction& c) {
  if (c.manque > kToleranceCouloir && (!faute || c.manque > faute->manque)) faute = c;
}

// Limits that pass each other by rounding meet.
limites redresse(const limites& l) {
  if (l.hauteur() >= 0) return l;
  const double milieu = 0.5 * (l.bas + l.haut);
  return {milieu, milieu};
}

}  // namespace

reduction reduire(const couloir& c, const std::optional<pentes>& p) {
  reduction r;
  for (const porte& ici : c.portes) noter(r.faute, {ici.distance, ici.distance, -ici.passage.hauteur()});
  if (!p || c.portes.size() < 2) {
    r.reste = c;
    for (porte& ici : r.reste.portes) ici.passage = redresse(ici.passage);
    return r;
  }
  const suivie haut = reduite(limite(c, true), *p);
  const suivie bas = tournee(reduite(tournee(limite(c, false), false, true), retournees(*p)), false, true);
  std::vector<double> stations;
  for (const suivie* f : {&haut, &bas})
    for (const pointSuivi& s : *f) stations.push_back(s.distance);
  std::sort(stations.begin(), stations.end());
  lecture lireHaut(haut), lireBas(bas);
  for (const double d : stations) {
    if (!r.reste.portes.empty() && d - r.reste.portes.back().distance < plv::kToleranceStation) continue;
    const pointSuivi h = lireHaut.en(d), b = lireBas.en(d);
    noter(r.faute, {b.origine, h.origine, b.altitude - h.altitude});
    r.reste.portes.push_back({d, redresse({b.altitude, h.altitude})});
  }
  r.reste.portes.back().distance = c.fin();
  return r;
}

ligneDroite dansLesPentes(const ligneDroite& ligne, const pentes& p) {
  suivie f;
  for (const pointLigne& q : ligne) f.push_back({q.distance, q.altitude, q.distance});
  f = sousRampe(f, p.plusGrande);
  f = tournee(sousRampe(tournee(f, false, true), -p.moindre), false, true);
  ligneDroite resultat;
  for (std::size_t i = 0; i < f.size(); ++i)
    if (i == 0 || i + 1 == f.size() || bombement(resultat.back(), f[i], f[i + 1]) > kToleranceDroite)
      resultat.push_back({f[i].distance, f[i].altitude});
  return resultat;
}

}  // namespace etu
