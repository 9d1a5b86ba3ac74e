// The lines that pass all limits met so far: below the upper ones and above the lower ones.
// Limits come from left to right. Each takes constant time on the average, as with a funnel of two convex hulls.
#pragma once
#include <vector>

#include "etudes/optimal/grille.h"

namespace etu {

// One side of the corridor, with the extreme line that it holds: the steepest way up for the upper side, the steepest way
// down for the lower one. That line touches the other side on its left and this side on its right.
class bord {
 public:
  explicit bord(int signe) : m_signe(signe) {}
  void vider();
  bool tendu() const { return m_tendu; }
  const pointGrille& gauche() const { return m_gauche; }
  const pointGrille& droite() const { return m_droite; }

  // Whether no line of the fan passes this limit of the side: the extreme line of the other side misses it.
  bool manque(const pointGrille& p, const bord& autre) const {
    return autre.m_tendu && m_signe * signeDe(hauteurSur(autre.m_gauche, autre.m_droite, p)) < 0;
  }
  // Turns the extreme line to a new limit of this side that it would pass beyond.
  void tendre(const pointGrille& p, bord& autre);
  // Takes the limit into the hull; after tendre.
  void inserer(const pointGrille& p);

 private:
  static int signeDe(entierLong v) { return (v > 0) - (v < 0); }
  int m_signe;                           // 1 for the upper side, -1 for the lower one
  std::vector<pointGrille> m_enveloppe;  // the limits that a line can touch, from left to right
  std::size_t m_debut = 0;               // where the other side's extreme line touches; what is before it is of no use
  bool m_tendu = false;
  pointGrille m_gauche, m_droite;
};

}  // namespace etu
