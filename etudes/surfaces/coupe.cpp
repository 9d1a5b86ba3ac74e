// Putting runs together, cutting pieces to stretches, and thinning.
#include "etudes/surfaces/coupe.h"

#include <optional>

namespace etu {

namespace {

double entre(double t0, double z0, double t1, double z1, double t) {
  return t1 > t0 ? z0 + (z1 - z0) * (t - t0) / (t1 - t0) : z0;
}

// Pieces that grow to the right.
class assemblage {
 public:
  void ajouter(const pointCoupe& debut, const pointCoupe& fin) {
    if (m_morceaux.empty() || debut.station > m_morceaux.back().back().station + kJoint) m_morceaux.emplace_back();
    morceau& m = m_morceaux.back();
    if (m.empty()) {
      m.push_back(debut);
    } else if (std::abs(m.back().z - debut.z) > kMemeAltitude) {
      m.push_back({m.back().station, debut.z});  // a wall
    }
    m.push_back({std::max(fin.station, m.back().station), fin.z});
  }
  std::vector<morceau> ceder() { return std::move(m_morceaux); }

 private:
  std::vector<morceau> m_morceaux;
};

struct corde {
  const piedAxe &a, &b;
  double station(double t) const { return t == 1 ? b.station : a.station + t * (b.station - a.station); }
  double longueur() const { return b.station - a.station; }
};

void assembler(const corde& c, std::vector<tranche>& tranches, assemblage& resultat,
               listeContradictions& contradictions) {
  std::sort(tranches.begin(), tranches.end(),
            [](const tranche& p, const tranche& q) { return p.t0 != q.t0 ? p.t0 < q.t0 : p.t1 > q.t1; });
  const double joint = kJoint / c.longueur();
  std::optional<tranche> derniere;
  for (tranche t : tranches) {
    if (derniere && t.t0 < derniere->t1 - joint) {
      const double milieu = 0.5 * (t.t0 + std::min(t.t1, derniere->t1));
      contradictions.ajouter(
          desaccord::facesSuperposees, c.a.x + milieu * (c.b.x - c.a.x), c.a.y + milieu * (c.b.y - c.a.y),
          entre(derniere->t0, derniere->z0, derniere->t1, derniere->z1, milieu), entre(t.t0, t.z0, t.t1, t.z1, milieu));
      if (t.t1 <= derniere->t1 + joint) continue;
      t.z0 = entre(t.t0, t.z0, t.t1, t.z1, derniere->t1), t.t0 = derniere->t1;
    }
    resultat.ajouter({c.station(t.t0), t.z0}, {c.station(t.t1), t.z1});
    derniere = t;
  }
}

}  // namespace

std::vector<morceau> couper(surfaceCoupable& surface, const std::vector<piedAxe>& pieds,
                            listeContradictions& contradictions) {
  assemblage resultat;
  std::vector<tranche> tranches;
  for (std::size_t i = 0; i + 1 < pieds.size(); ++i) {
    tranches.clear();
    surface.couper(pieds[i], pieds[i + 1], tranches);
    assembler({pieds[i], pieds[i + 1]}, tranches, resultat, contradictions);
  }
  return resultat.ceder();
}

std::vector<morceau> dansIntervalles(const std::vector<morceau>& morceaux, const std::vector<intervalle>& intervalles) {
  assemblage resultat;
  std::size_t premier = 0;
  for (const morceau& m : morceaux)
    for (std::size_t k = 0; k + 1 < m.size(); ++k) {
      const pointCoupe &p = m[k], &q = m[k + 1];
      while (premier < intervalles.size() && intervalles[premier].fin <= p.station) ++premier;
      for (std::size_t i = premier; i < intervalles.size() && intervalles[i].debut < q.station; ++i) {
        const double a = std::max(p.station, intervalles[i].debut), b = std::min(q.station, intervalles[i].fin);
        if (b > a)
          resultat.ajouter({a, entre(p.station, p.z, q.station, q.z, a)},
                           {b, entre(p.station, p.z, q.station, q.z, b)});
      }
    }
  return resultat.ceder();
}

morceau alleger(const morceau& points, double tolerance) {
  if (points.size() < 3 || !(tolerance > 0)) return points;
  morceau garde{points[0]};
  const auto garder = [&](const pointCoupe& p) {
    if (p.station != garde.back().station || p.z != garde.back().z) garde.push_back(p);
  };
  double bas = -HUGE_VAL, haut = HUGE_VAL;  // slopes from the last point kept that pass all since within the tolerance
  for (std::size_t i = 1; i < points.size(); ++i) {
    double pas = points[i].station - garde.back().station;
    const double pente = pas > 0 ? (points[i].z - garde.back().z) / pas : HUGE_VAL;
    if (!(bas <= pente && pente <= haut) || pas <= 0) {
      garder(points[i - 1]);
      bas = -HUGE_VAL, haut = HUGE_VAL;
      pas = points[i].station - garde.back().station;
      if (pas <= 0) garder(points[i]);  // the other end of a wall
    }
    if (pas > 0) {
      bas = std::max(bas, (points[i].z - tolerance - garde.back().z) / pas);
      haut = std::min(haut, (points[i].z + tolerance - garde.back().z) / pas);
    }
  }
  garder(points.back());
  return garde;
}

}  // namespace etu
