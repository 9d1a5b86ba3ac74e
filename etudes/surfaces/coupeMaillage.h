// A mesh that is cut along chords: a grid of cells knows which triangles may lie under a chord.
// Each triangle is cut for itself, so that a chord along an edge or through a vertex is no special case; the crossing of an edge
// is worked out alike for both its triangles, so that no gap opens between them.
#pragma once
#include "etudes/surfaces/coupe.h"

namespace etu {

class coupeMaillage : public surfaceCoupable {
 public:
  explicit coupeMaillage(maillage mesh);
  void couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) override;
  etendue emprise() const override { return m_etendue; }
  const maillage& mesh() const { return m_mesh; }

 private:
  struct bande {
    double gauche, droite;
  };
  int ligneDe(double y) const;
  int colonneDe(double x) const;
  template <class Action>
  void pourCellules(const std::array<numero, 3>& triangle, const Action& action) const;
  void couperTriangle(const std::array<numero, 3>& triangle, const piedAxe& a, const piedAxe& b,
                      std::vector<tranche>& tranches) const;

  maillage m_mesh;
  etendue m_etendue;
  double m_pas = 1;
  int m_lignes = 1, m_colonnes = 1;
  std::vector<numero> m_debuts, m_listes;  // the triangles of cell c: m_listes from m_debuts[c] to m_debuts[c + 1]
  std::vector<numero> m_vus;               // the chord at which each triangle was last looked at
  numero m_corde = 0;
};

}  // namespace etu
