// The extreme lines only ever turn one way, so that their points of contact move to the right along the hulls.
#include "etudes/optimal/faisceau.h"

namespace etu {

void bord::vider() {
  m_enveloppe.clear();
  m_debut = 0;
  m_tendu = false;
}

void bord::tendre(const pointGrille& p, bord& autre) {
  if (autre.m_enveloppe.empty()) return;
  if (m_tendu && m_signe * signeDe(hauteurSur(m_gauche, m_droite, p)) >= 0) return;
  const std::vector<pointGrille>& appuis = autre.m_enveloppe;
  std::size_t& contact = autre.m_debut;
  while (contact + 1 < appuis.size() && m_signe * signeDe(hauteurSur(appuis[contact], p, appuis[contact + 1])) >= 0)
    ++contact;
  m_gauche = appuis[contact];
  m_droite = p;
  m_tendu = true;
}

void bord::inserer(const pointGrille& p) {
  while (m_enveloppe.size() >= m_debut + 2 &&
         m_signe * signeDe(hauteurSur(m_enveloppe[m_enveloppe.size() - 2], m_enveloppe.back(), p)) <= 0)
    m_enveloppe.pop_back();
  m_enveloppe.push_back(p);
}

}  // namespace etu
