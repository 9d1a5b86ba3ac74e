// A grid of altitudes that is cut along chords: bilinear between its nodes, no ground in a cell with a node without altitude.
// Under a chord the ground of a cell is a parabola: chords of it keep to it within kFlecheGrille.
#pragma once
#include <memory>

#include "etudes/surfaces/coupe.h"

namespace etu {

inline constexpr double kFlecheGrille = 1e-4;

class grilleAltitudes {
 public:
  virtual ~grilleAltitudes() = default;
  virtual int colonnes() const = 0;
  virtual int lignes() const = 0;
  virtual double altitude(int colonne, int ligne) = 0;  // metres; not a number where there is none
  // The same grid for another thread, where reading it takes long enough; else null.
  virtual std::unique_ptr<grilleAltitudes> autre() const { return nullptr; }
};

// The place of node (column, line): x = x0 + column * xc + line * xl, y alike.
struct repereGrille {
  double x0 = 0, xc = 1, xl = 0, y0 = 0, yc = 0, yl = 1;
};

class coupeGrille : public surfaceCoupable {
 public:
  coupeGrille(std::unique_ptr<grilleAltitudes> grille, const repereGrille& repere);
  void couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) override;
  etendue emprise() const override;

 private:
  std::unique_ptr<grilleAltitudes> m_grille, m_seconde;
  repereGrille m_repere;
  double m_determinant;
};

}  // namespace etu
