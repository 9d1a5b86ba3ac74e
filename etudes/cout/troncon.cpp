// At one difference of levels a run keeps its slope while its level changes, so that a piece of ground which stays in one class
// of depth costs a linear function of the level. These functions are summed over ranges of levels; only where a
// piece lies across a limit of classes is it looked at for itself.
#include "etudes/cout/troncon.h"

#include <algorithm>
#include <cmath>

namespace etu {

namespace {

constexpr double kMemeAltitude = 1e-9;  // metres
constexpr double kLoin = 1e9;           // levels: more than any ladder has

// The first level at or above an altitude, and the last one at or below it.
int niveauDepuis(double altitude, double base, double pas) {
  return static_cast<int>(std::ceil(std::clamp((altitude - kMemeAltitude - base) / pas, -kLoin, kLoin)));
}
int niveauJusque(double altitude, double base, double pas) {
  return static_cast<int>(std::floor(std::clamp((altitude + kMemeAltitude - base) / pas, -kLoin, kLoin)));
}

}  // namespace

bool couts::borner(const echelle& gauche, double montee, int& premier, int& dernier) const {
  double bas = -std::numeric_limits<double>::infinity(), haut = std::numeric_limits<double>::infinity();
  for (const passage& p : m_t.passages) {
    bas = std::max(bas, p.altitudes.bas - p.t * montee);
    haut = std::min(haut, p.altitudes.haut - p.t * montee);
  }
  premier = std::max(premier, niveauDepuis(bas - m_finesse.marge, gauche.base, m_finesse.pas));
  dernier = std::min(dernier, niveauJusque(haut + m_finesse.marge, gauche.base, m_finesse.pas));
  return premier <= dernier;
}

void couts::fermer(const echelle& gauche, double montee) {
  const int niveaux = static_cast<int>(m_resultat.cout.size());
  for (const obstacle& o : m_t.obstacles) {
    const double plusHaut = std::max(o.debut * montee, o.fin * montee),
                 plusBas = std::min(o.debut * montee, o.fin * montee);
    // Levels that pass neither below nor above.
    const int sous = niveauJusque(o.interdit.bas - plusHaut + m_finesse.marge, gauche.base, m_finesse.pas);
    const int dessus = niveauDepuis(o.interdit.haut - plusBas - m_finesse.marge, gauche.base, m_finesse.pas);
    for (int i = std::max(0, sous + 1 - m_resultat.premier); i < std::min(niveaux, dessus - m_resultat.premier); ++i)
      m_resultat.cout[static_cast<std::size_t>(i)] = std::numeric_limits<double>::infinity();
  }
}

void couts::sommer(const echelle& gauche, double montee) {
  const auto niveaux = static_cast<int>(m_resultat.cout.size());
  m_pente.assign(static_cast<std::size_t>(niveaux) + 1, 0);
  m_constante.assign(static_cast<std::size_t>(niveaux) + 1, 0);
  // Depths are counted from the first of the levels; a level more is a step less.
  const double z = gauche.altitude(m_resultat.premier, m_finesse.pas) + m_finesse.allegement, pas = m_finesse.pas;
  for (const morceauSol& m : m_t.sol) {
    const double d0 = m.zDebut - (z + m.debut * montee), d1 = m.zFin - (z + m.fin * montee);
    const double longueur = (m.fin - m.debut) * m_t.longueur, bas = std::min(d0, d1), haut = std::max(d0, d1);
    int i = 0;
    for (std::size_t k = m_prix.jusque.size(); k-- > 0 && i < niveaux;) {
      // From the deepest class to the shallowest: levels across its lower end are looked at one by one.
      const double plancher = k > 0 ? m_prix.jusque[k - 1] : -std::numeric_limits<double>::infinity();
      const int dedans = std::min(niveaux, niveauJusque(bas - 2 * kMemeAltitude, plancher, pas) + 1);
      const int touche = std::min(niveaux, niveauJusque(haut - 2 * kMemeAltitude, plancher, pas) + 1);
      if (k == 0 || dedans > i) {
        const int fin = k == 0 ? niveaux : dedans;
        const double parMetre = longueur * m_prix.parMetre[k];
        m_pente[static_cast<std::size_t>(i)] -= parMetre * pas;
        m_pente[static_cast<std::size_t>(fin)] += parMetre * pas;
        m_constante[static_cast<std::size_t>(i)] += parMetre * 0.5 * (bas + haut);
        m_constante[static_cast<std::size_t>(fin)] -= parMetre * 0.5 * (bas + haut);
        i = fin;
      }
      for (; i < touche; ++i)
        m_resultat.cout[static_cast<std::size_t>(i)] += m_prix.de(longueur, d0 - i * pas, d1 - i * pas);
    }
  }
  double pente = 0, constante = 0;
  for (int i = 0; i < niveaux; ++i) {
    pente += m_pente[static_cast<std::size_t>(i)];
    constante += m_constante[static_cast<std::size_t>(i)];
    m_resultat.cout[static_cast<std::size_t>(i)] += constante + pente * i;
  }
}

const couts::resultat& couts::pour(const echelle& gauche, const echelle& droite, int ecart) {
  m_resultat.cout.clear();
  int premier = std::max(0, -ecart), dernier = std::min(gauche.niveaux - 1, droite.niveaux - 1 - ecart);
  const double montee = droite.base - gauche.base + ecart * m_finesse.pas;
  if (premier > dernier || !borner(gauche, montee, premier, dernier)) return m_resultat;
  m_resultat.premier = premier;
  m_resultat.cout.assign(static_cast<std::size_t>(dernier - premier) + 1, 0);
  sommer(gauche, montee);
  fermer(gauche, montee);
  return m_resultat;
}

}  // namespace etu
