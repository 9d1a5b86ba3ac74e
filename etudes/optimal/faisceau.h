// The lines that pass all limits met so far: below the upper ones and above the lower ones.
// Limits come from left to right. Each takes constant time on the average, as with a funnel of two convex hulls.
#pragma once
#include <vector>

#include "etudes/optimal/grille.h"

namespace etu {

// One side of the corridor, with the extreme line that it holds: the steepest way up for the upper side, the steepest way
// down for the lower one. That line touches the other side on its left and this side on its right. Extreme lines only ever
// turn one way, so that their points of contact move to the right along the hulls. The side is a constant of the type, since
// each door asks for it many times.
template <bool HAUT>
class bord {
 public:
  static constexpr bool kHaut = HAUT;
  using autreBord = bord<!HAUT>;
  void vider() {
    m_enveloppe.clear();
    m_contact = 0;
    m_tendu = false;
  }
  bool tendu() const { return m_tendu; }
  const pointGrille& gauche() const { return m_gauche; }
  const pointGrille& droite() const { return m_droite; }

  // Whether no line of the fan passes this limit of the side: the extreme line of the other side misses it.
  bool manque(const pointGrille& p, const autreBord& autre) const {
    return autre.m_tendu && coupe(hauteurSur(autre.m_gauche, autre.m_droite, p));
  }
  // Turns the extreme line to a new limit of this side that it would pass beyond.
  void tendre(const pointGrille& p, autreBord& autre) {
    const std::vector<pointGrille>& appuis = autre.m_enveloppe;
    if (appuis.empty() || (m_tendu && !coupe(hauteurSur(m_gauche, m_droite, p)))) return;
    std::size_t& contact = autre.m_contact;
    while (contact + 1 < appuis.size() && !coupe(hauteurSur(appuis[contact], p, appuis[contact + 1]))) ++contact;
    m_gauche = appuis[contact];
    m_droite = p;
    m_tendu = true;
  }
  // Takes the limit into the hull; after tendre.
  void inserer(const pointGrille& p) {
    std::size_t n = m_enveloppe.size();
    while (n >= m_contact + 2 && !libre(hauteurSur(m_enveloppe[n - 2], m_enveloppe[n - 1], p))) --n;
    if (n == m_enveloppe.size()) return m_enveloppe.push_back(p);
    m_enveloppe[n] = p;
    m_enveloppe.resize(n + 1);
  }

 private:
  friend autreBord;
  // Of a point's height over a line: on the corridor's side of it, where a limit cuts the line off; on this limit's own side.
  static bool coupe(entierLong v) { return HAUT ? v < 0 : v > 0; }
  static bool libre(entierLong v) { return HAUT ? v > 0 : v < 0; }
  std::vector<pointGrille> m_enveloppe;  // the limits that a line can touch, from left to right
  std::size_t m_contact = 0;             // where the other side's extreme line touches; what is before it is of no use
  bool m_tendu = false;
  pointGrille m_gauche, m_droite;
};

}  // namespace etu
