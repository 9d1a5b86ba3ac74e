// The straight runs from a place on: the slopes that pass all doors up to a distance, and what a run has to keep to besides.
#pragma once
#include <optional>

#include "etudes/optimal/couloir.h"
#include "etudes/optimal/pentes.h"

namespace etu {

// What a corridor can't express.
struct exigences {
  std::optional<pentes> pente;
  double longueur = 0;     // of a run at least
  double pasAltitude = 0;  // vertices stand at multiples of it, but for ends that are given; 0 where they like
  double pasPente = 0;     // slopes are multiples of it; 0 where they like
  bool debutDonne = false, finDonnee = false;
  // The lines of moinsDeDroites, brought within the slopes, fulfil them.
  bool simples() const { return longueur == 0 && pasAltitude == 0 && pasPente == 0; }
};

// The altitude for a vertex that is nearest to a wanted one, within the corridor and rounded as required; nothing where there is none.
std::optional<double> altitudePermise(const couloir& c, const exigences& e, double distance, double altitude);

class cone {
 public:
  cone(const couloir& c, const exigences& e, const pointLigne& depuis);
  // Passes the doors left of a distance, which may not decrease from call to call. False when no run comes so far.
  bool avancer(double distance);
  // Whether the run to a place, at that distance and in the corridor, passes.
  bool voit(const pointLigne& p) const;
  // The slopes that pass.
  double moindre() const { return m_moindre; }
  double plusGrande() const { return m_plusGrande; }

 private:
  const couloir& m_couloir;
  pointLigne m_depuis;
  std::size_t m_porte;  // the next one
  double m_moindre, m_plusGrande;
};

}  // namespace etu
