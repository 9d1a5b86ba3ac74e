// Limits are taken a little wider than they are, so that a line which touches them in several places passes.
#include "etudes/optimal/cone.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace etu {

namespace {

constexpr double kTolerancePassage = kToleranceCouloir / 2, kTolerancePente = 1e-10;

}  // namespace

std::optional<double> altitudePermise(const couloir& c, const exigences& e, double distance, double altitude) {
  const limites l = c.entre(c.rangDe(distance), distance);
  double z = std::max(l.bas, std::min(l.haut, altitude));
  const bool donnee = (e.debutDonne && distance == c.debut()) || (e.finDonnee && distance == c.fin());
  if (e.pasAltitude <= 0 || donnee) return z;
  const double pas = e.pasAltitude;
  z = std::round(z / pas) * pas;
  if (z > l.haut + kTolerancePassage) z = std::floor(l.haut / pas) * pas;
  if (z < l.bas - kTolerancePassage) z = std::ceil(l.bas / pas) * pas;
  if (z > l.haut + kTolerancePassage) return std::nullopt;
  return z;
}

cone::cone(const couloir& c, const exigences& e, const pointLigne& depuis)
    : m_couloir(c),
      m_depuis(depuis),
      m_porte(c.rangDe(depuis.distance) + 1),
      m_moindre(-std::numeric_limits<double>::max()),
      m_plusGrande(std::numeric_limits<double>::max()) {
  if (!e.pente) return;
  m_moindre = e.pente->moindre - kTolerancePente;
  m_plusGrande = e.pente->plusGrande + kTolerancePente;
}

bool cone::avancer(double distance) {
  for (; m_porte < m_couloir.portes.size() && m_couloir.portes[m_porte].distance < distance; ++m_porte) {
    const limites& l = m_couloir.portes[m_porte].passage;
    const double parMetre = 1 / (m_couloir.portes[m_porte].distance - m_depuis.distance);
    m_moindre = std::max(m_moindre, (l.bas - kTolerancePassage - m_depuis.altitude) * parMetre);
    m_plusGrande = std::min(m_plusGrande, (l.haut + kTolerancePassage - m_depuis.altitude) * parMetre);
  }
  return m_moindre <= m_plusGrande;
}

bool cone::voit(const pointLigne& p) const {
  const double pente = (p.altitude - m_depuis.altitude) / (p.distance - m_depuis.distance);
  return pente >= m_moindre && pente <= m_plusGrande;
}

}  // namespace etu
