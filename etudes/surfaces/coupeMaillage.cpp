// The grid and the cut of a triangle. A cell holds about two triangles of a mesh that is evenly spread.
// Places are compared after the start of the chord is taken off, so that large coordinates cost no digits.
#include "etudes/surfaces/coupeMaillage.h"

namespace etu {

namespace {

constexpr double kTrianglesParCellule = 2;
constexpr int kCellulesDeCote = 8192;

// The stretch of x in which segments pass a band of y.
class largeur {
 public:
  largeur(double bas, double haut) : m_bas(bas), m_haut(haut) {}
  void prendre(double xa, double ya, double xb, double yb) {
    if (ya > yb) std::swap(xa, xb), std::swap(ya, yb);
    if (yb < m_bas || ya > m_haut) return;
    const double pente = yb > ya ? (xb - xa) / (yb - ya) : 0;
    ajouter(ya < m_bas ? xa + (m_bas - ya) * pente : xa);
    ajouter(yb > m_haut ? xa + (m_haut - ya) * pente : xb);
  }
  bool vide() const { return !(gauche <= droite); }
  double gauche = HUGE_VAL, droite = -HUGE_VAL;

 private:
  void ajouter(double x) { gauche = std::min(gauche, x), droite = std::max(droite, x); }
  double m_bas, m_haut;
};

}  // namespace

coupeMaillage::coupeMaillage(maillage mesh) : m_mesh(std::move(mesh)) {
  for (const auto& t : m_mesh.triangles)
    for (const numero p : t) m_etendue.prendre(m_mesh.points[p].x, m_mesh.points[p].y);
  if (m_etendue.vide()) return;
  const double l = m_etendue.xMax - m_etendue.xMin, h = m_etendue.yMax - m_etendue.yMin;
  const double n = std::max(1.0, static_cast<double>(m_mesh.triangles.size()) / kTrianglesParCellule);
  m_pas = std::max({std::sqrt(l * h / n), std::max(l, h) / kCellulesDeCote, 1e-6});
  m_colonnes = static_cast<int>(l / m_pas) + 1, m_lignes = static_cast<int>(h / m_pas) + 1;

  m_debuts.assign(static_cast<std::size_t>(m_colonnes) * static_cast<std::size_t>(m_lignes) + 1, 0);
  for (const auto& t : m_mesh.triangles) pourCellules(t, [&](std::size_t c) { ++m_debuts[c + 1]; });
  for (std::size_t c = 1; c < m_debuts.size(); ++c) m_debuts[c] += m_debuts[c - 1];
  m_listes.resize(m_debuts.back());
  std::vector<numero> place(m_debuts.begin(), m_debuts.end() - 1);
  for (std::size_t i = 0; i < m_mesh.triangles.size(); ++i)
    pourCellules(m_mesh.triangles[i], [&](std::size_t c) { m_listes[place[c]++] = static_cast<numero>(i); });
  m_vus.assign(m_mesh.triangles.size(), 0);
}

int coupeMaillage::ligneDe(double y) const {
  return static_cast<int>(std::clamp((y - m_etendue.yMin) / m_pas, 0.0, m_lignes - 1.0));
}
int coupeMaillage::colonneDe(double x) const {
  return static_cast<int>(std::clamp((x - m_etendue.xMin) / m_pas, 0.0, m_colonnes - 1.0));
}

template <class Action>
void coupeMaillage::pourCellules(const std::array<numero, 3>& triangle, const Action& action) const {
  const point3 &p = m_mesh.points[triangle[0]], &q = m_mesh.points[triangle[1]], &r = m_mesh.points[triangle[2]];
  const int bas = ligneDe(std::min({p.y, q.y, r.y})), haut = ligneDe(std::max({p.y, q.y, r.y}));
  const int gauche = colonneDe(std::min({p.x, q.x, r.x})), droite = colonneDe(std::max({p.x, q.x, r.x}));
  for (int ligne = bas; ligne <= haut; ++ligne) {
    int de = gauche, a = droite;
    if (haut - bas > 1 && droite - gauche > 1) {  // a long triangle on the slant doesn't fill its box
      const double y = m_etendue.yMin + ligne * m_pas, marge = 1e-6 * m_pas;
      largeur l(y - marge, y + m_pas + marge);
      l.prendre(p.x, p.y, q.x, q.y), l.prendre(q.x, q.y, r.x, r.y), l.prendre(r.x, r.y, p.x, p.y);
      if (l.vide()) continue;
      de = colonneDe(l.gauche - marge), a = colonneDe(l.droite + marge);
    }
    for (int colonne = de; colonne <= a; ++colonne)
      action(static_cast<std::size_t>(ligne) * static_cast<std::size_t>(m_colonnes) +
             static_cast<std::size_t>(colonne));
  }
}

void coupeMaillage::couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) {
  etendue e;
  e.prendre(a.x, a.y), e.prendre(b.x, b.y);
  if (m_etendue.vide() || !e.touche(m_etendue)) return;
  if (++m_corde == 0) std::fill(m_vus.begin(), m_vus.end(), 0), m_corde = 1;
  const int bas = ligneDe(e.yMin), haut = ligneDe(e.yMax);
  for (int ligne = bas; ligne <= haut; ++ligne) {
    // The outer rows also stand for what lies beyond them, where the axis leaves the surface.
    const double y = m_etendue.yMin + ligne * m_pas, marge = 1e-6 * m_pas;
    largeur l(ligne == 0 ? -HUGE_VAL : y - marge, ligne == m_lignes - 1 ? HUGE_VAL : y + m_pas + marge);
    l.prendre(a.x, a.y, b.x, b.y);
    if (l.vide()) continue;
    const int droite = colonneDe(l.droite + marge);
    for (int colonne = colonneDe(l.gauche - marge); colonne <= droite; ++colonne) {
      const std::size_t c =
          static_cast<std::size_t>(ligne) * static_cast<std::size_t>(m_colonnes) + static_cast<std::size_t>(colonne);
      for (numero k = m_debuts[c]; k < m_debuts[c + 1]; ++k) {
        const numero t = m_listes[k];
        if (std::exchange(m_vus[t], m_corde) != m_corde) couperTriangle(m_mesh.triangles[t], a, b, tranches);
      }
    }
  }
}

void coupeMaillage::couperTriangle(const std::array<numero, 3>& triangle, const piedAxe& a, const piedAxe& b,
                                   std::vector<tranche>& tranches) const {
  const double ux = b.x - a.x, uy = b.y - a.y, l2 = ux * ux + uy * uy;
  struct coin {
    numero rang;
    double cote, t, z;  // the side of the line on which it lies, times the chord's length; its place along the chord
  };
  std::array<coin, 3> coins;
  for (std::size_t i = 0; i < 3; ++i) {
    const point3& p = m_mesh.points[triangle[i]];
    const double x = p.x - a.x, y = p.y - a.y;
    coins[i] = {triangle[i], ux * y - uy * x, (ux * x + uy * y) / l2, p.z};
  }
  if ((coins[0].cote > 0 && coins[1].cote > 0 && coins[2].cote > 0) ||
      (coins[0].cote < 0 && coins[1].cote < 0 && coins[2].cote < 0))
    return;
  tranche coupe{HUGE_VAL, 0, -HUGE_VAL, 0};
  const auto prendre = [&](double t, double z) {
    if (t < coupe.t0) coupe.t0 = t, coupe.z0 = z;
    if (t > coupe.t1) coupe.t1 = t, coupe.z1 = z;
  };
  for (std::size_t i = 0; i < 3; ++i) {
    const coin *p = &coins[i], *q = &coins[(i + 1) % 3];
    if (p->cote == 0) prendre(p->t, p->z);
    if (p->rang > q->rang) std::swap(p, q);
    if ((p->cote < 0 && q->cote > 0) || (p->cote > 0 && q->cote < 0)) {
      const double u = p->cote / (p->cote - q->cote);
      prendre(p->t + u * (q->t - p->t), p->z + u * (q->z - p->z));
    }
  }
  if (!(coupe.t0 < coupe.t1) || coupe.t1 <= 0 || coupe.t0 >= 1) return;
  const double pente = (coupe.z1 - coupe.z0) / (coupe.t1 - coupe.t0);
  if (coupe.t1 > 1) coupe.z1 = coupe.z0 + (1 - coupe.t0) * pente, coupe.t1 = 1;
  if (coupe.t0 < 0) coupe.z0 -= coupe.t0 * pente, coupe.t0 = 0;
  tranches.push_back(coupe);
}

}  // namespace etu
