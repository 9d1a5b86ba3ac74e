// Cutting a grid: in columns and lines its cells are unit squares, and a chord stays straight.
#include "etudes/surfaces/coupeGrille.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <span>

namespace etu {

namespace {

constexpr int kCordesParCellule = 1024;
// A chord of more cells is read by two threads: most of its time is spent in unpacking tiles.
constexpr std::size_t kCorde = 2000;

// Where a coordinate that runs from a to b passes whole numbers, as parts of the way.
void entiers(double a, double b, double de, double jusque, std::vector<double>& parts) {
  if (a == b) return;
  const double bas = std::max(std::min(a, b), de), haut = std::min(std::max(a, b), jusque);
  for (double k = std::ceil(bas); k <= haut; ++k)
    if (const double t = (k - a) / (b - a); t > 0 && t < 1) parts.push_back(t);
}

struct noeud {
  double colonne, ligne;
};

// A chord in columns and lines, and the places where it passes from cell to cell, as parts of the way.
class coupeDeCorde {
 public:
  coupeDeCorde(grilleAltitudes& grille, const noeud& a, const noeud& b) : m_grille(grille), m_a(a), m_b(b) {}
  void couper(std::span<const double> parts, std::vector<tranche>& tranches) const;

 private:
  bool cellule(int colonne, int ligne, double t0, double t1, std::vector<tranche>& tranches) const;
  grilleAltitudes& m_grille;
  noeud m_a, m_b;
};

void coupeDeCorde::couper(std::span<const double> parts, std::vector<tranche>& tranches) const {
  const int colonnes = m_grille.colonnes(), lignes = m_grille.lignes();
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    if (parts[i] == parts[i + 1]) continue;
    const double milieu = 0.5 * (parts[i] + parts[i + 1]);
    const double c = m_a.colonne + milieu * (m_b.colonne - m_a.colonne),
                 l = m_a.ligne + milieu * (m_b.ligne - m_a.ligne);
    if (c < 0 || l < 0 || c > colonnes - 1 || l > lignes - 1) continue;
    const int colonne = std::min(static_cast<int>(c), colonnes - 2), ligne = std::min(static_cast<int>(l), lignes - 2);
    if (cellule(colonne, ligne, parts[i], parts[i + 1], tranches)) continue;
    // Along a line of nodes either side will do.
    if (c == colonne && colonne > 0 && cellule(colonne - 1, ligne, parts[i], parts[i + 1], tranches)) continue;
    if (l == ligne && ligne > 0) cellule(colonne, ligne - 1, parts[i], parts[i + 1], tranches);
  }
}

bool coupeDeCorde::cellule(int colonne, int ligne, double t0, double t1, std::vector<tranche>& tranches) const {
  const double z00 = m_grille.altitude(colonne, ligne), z10 = m_grille.altitude(colonne + 1, ligne);
  const double z01 = m_grille.altitude(colonne, ligne + 1), z11 = m_grille.altitude(colonne + 1, ligne + 1);
  const double torsion = z00 - z10 - z01 + z11;
  if (std::isnan(torsion)) return false;
  const double dc = m_b.colonne - m_a.colonne, dl = m_b.ligne - m_a.ligne;
  const auto altitude = [&](double t) {
    const double u = std::clamp(m_a.colonne + t * dc - colonne, 0.0, 1.0),
                 v = std::clamp(m_a.ligne + t * dl - ligne, 0.0, 1.0);
    return z00 + u * (z10 - z00) + v * (z01 - z00) + u * v * torsion;
  };
  const double fleche = std::abs(torsion * dc * dl) * (t1 - t0) * (t1 - t0) / 4;
  const int nombre =
      static_cast<int>(std::clamp(std::ceil(std::sqrt(fleche / kFlecheGrille)), 1.0, double{kCordesParCellule}));
  double t = t0, z = altitude(t0);
  for (int k = 1; k <= nombre; ++k) {
    const double suivant = k == nombre ? t1 : t0 + (t1 - t0) * k / nombre, zSuivant = altitude(suivant);
    tranches.push_back({t, z, suivant, zSuivant});
    t = suivant, z = zSuivant;
  }
  return true;
}

}  // namespace

coupeGrille::coupeGrille(std::unique_ptr<grilleAltitudes> grille, const repereGrille& repere)
    : m_grille(std::move(grille)), m_repere(repere), m_determinant(repere.xc * repere.yl - repere.xl * repere.yc) {}

etendue coupeGrille::emprise() const {
  etendue e;
  for (const int c : {0, m_grille->colonnes() - 1})
    for (const int l : {0, m_grille->lignes() - 1})
      e.prendre(m_repere.x0 + c * m_repere.xc + l * m_repere.xl, m_repere.y0 + c * m_repere.yc + l * m_repere.yl);
  return e;
}

void coupeGrille::couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) {
  const auto noeudDe = [this](const piedAxe& pied) {
    const double dx = pied.x - m_repere.x0, dy = pied.y - m_repere.y0;
    return noeud{(dx * m_repere.yl - dy * m_repere.xl) / m_determinant,
                 (dy * m_repere.xc - dx * m_repere.yc) / m_determinant};
  };
  const noeud p = noeudDe(a), q = noeudDe(b);
  const int colonnes = m_grille->colonnes(), lignes = m_grille->lignes();
  if (colonnes < 2 || lignes < 2) return;
  std::vector<double> parts{0, 1};
  entiers(p.colonne, q.colonne, 0, colonnes - 1, parts);
  entiers(p.ligne, q.ligne, 0, lignes - 1, parts);
  std::sort(parts.begin(), parts.end());
  const std::span<const double> toutes(parts);
  if (parts.size() > kCorde && !m_seconde) m_seconde = m_grille->autre();
  if (parts.size() <= kCorde || !m_seconde) return coupeDeCorde(*m_grille, p, q).couper(toutes, tranches);
  const std::size_t milieu = parts.size() / 2;
  std::vector<tranche> suite;
  auto seconde =
      std::async(std::launch::async, [&] { coupeDeCorde(*m_seconde, p, q).couper(toutes.subspan(milieu), suite); });
  coupeDeCorde(*m_grille, p, q).couper(toutes.first(milieu + 1), tranches);
  seconde.get();
  tranches.insert(tranches.end(), suite.begin(), suite.end());
}

}  // namespace etu
