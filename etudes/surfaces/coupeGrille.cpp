// Cutting a grid: in columns and lines its cells are unit squares, and a chord stays straight.
#include "etudes/surfaces/coupeGrille.h"

namespace etu {

namespace {

constexpr int kCordesParCellule = 1024;

// Where a coordinate that runs from a to b passes whole numbers, as parts of the way.
void entiers(double a, double b, double de, double jusque, std::vector<double>& parts) {
  if (a == b) return;
  const double bas = std::max(std::min(a, b), de), haut = std::min(std::max(a, b), jusque);
  for (double k = std::ceil(bas); k <= haut; ++k)
    if (const double t = (k - a) / (b - a); t > 0 && t < 1) parts.push_back(t);
}

}  // namespace

coupeGrille::coupeGrille(std::unique_ptr<grilleAltitudes> grille, const repereGrille& repere)
    : m_grille(std::move(grille)), m_repere(repere), m_determinant(repere.xc * repere.yl - repere.xl * repere.yc) {}

coupeGrille::noeud coupeGrille::noeudDe(double x, double y) const {
  const double dx = x - m_repere.x0, dy = y - m_repere.y0;
  return {(dx * m_repere.yl - dy * m_repere.xl) / m_determinant, (dy * m_repere.xc - dx * m_repere.yc) / m_determinant};
}

etendue coupeGrille::emprise() const {
  etendue e;
  for (const int c : {0, m_grille->colonnes() - 1})
    for (const int l : {0, m_grille->lignes() - 1})
      e.prendre(m_repere.x0 + c * m_repere.xc + l * m_repere.xl, m_repere.y0 + c * m_repere.yc + l * m_repere.yl);
  return e;
}

void coupeGrille::couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) {
  const noeud p = noeudDe(a.x, a.y), q = noeudDe(b.x, b.y);
  const int colonnes = m_grille->colonnes(), lignes = m_grille->lignes();
  if (colonnes < 2 || lignes < 2) return;
  std::vector<double> parts{0, 1};
  entiers(p.colonne, q.colonne, 0, colonnes - 1, parts);
  entiers(p.ligne, q.ligne, 0, lignes - 1, parts);
  std::sort(parts.begin(), parts.end());
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    if (parts[i] == parts[i + 1]) continue;
    const double milieu = 0.5 * (parts[i] + parts[i + 1]);
    const double c = p.colonne + milieu * (q.colonne - p.colonne), l = p.ligne + milieu * (q.ligne - p.ligne);
    if (c < 0 || l < 0 || c > colonnes - 1 || l > lignes - 1) continue;
    const int colonne = std::min(static_cast<int>(c), colonnes - 2), ligne = std::min(static_cast<int>(l), lignes - 2);
    if (couperCellule(colonne, ligne, p, q, parts[i], parts[i + 1], tranches)) continue;
    // Along a line of nodes either side will do.
    if (c == colonne && colonne > 0 && couperCellule(colonne - 1, ligne, p, q, parts[i], parts[i + 1], tranches))
      continue;
    if (l == ligne && ligne > 0) couperCellule(colonne, ligne - 1, p, q, parts[i], parts[i + 1], tranches);
  }
}

bool coupeGrille::couperCellule(int colonne, int ligne, const noeud& a, const noeud& b, double t0, double t1,
                                std::vector<tranche>& tranches) {
  const double z00 = m_grille->altitude(colonne, ligne), z10 = m_grille->altitude(colonne + 1, ligne);
  const double z01 = m_grille->altitude(colonne, ligne + 1), z11 = m_grille->altitude(colonne + 1, ligne + 1);
  const double torsion = z00 - z10 - z01 + z11;
  if (std::isnan(torsion)) return false;
  const double dc = b.colonne - a.colonne, dl = b.ligne - a.ligne;
  const auto altitude = [&](double t) {
    const double u = std::clamp(a.colonne + t * dc - colonne, 0.0, 1.0),
                 v = std::clamp(a.ligne + t * dl - ligne, 0.0, 1.0);
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

}  // namespace etu
