// Both lines are walked together, from vertex to vertex of either.
// Between two vertices both are straight, so that the depths at the two ends bound those between.
#include "etudes/optimal/profondeurs.h"

#include <algorithm>

#include "module/profil/profilLong.h"

namespace etu {

namespace {

bool versLaDroite(const listeSommets& ligne) {
  return std::is_sorted(ligne.begin(), ligne.end(),
                        [](const sommet& a, const sommet& b) { return a.distance < b.distance; });
}

// The present run of a line during the walk.
class troncon {
 public:
  explicit troncon(const listeSommets& ligne) : m_ligne(ligne) {}
  // Moves to the run that leads beyond that distance, or to the last one.
  void avancer(plv::distanceProfil d) {
    while (m_rang + 2 < m_ligne.size() && m_ligne[m_rang + 1].distance <= d) ++m_rang;
  }
  plv::distanceProfil fin() const { return m_ligne[m_rang + 1].distance; }
  plv::altitudeVraie altitude(plv::distanceProfil d) const {
    const sommet &a = m_ligne[m_rang], &b = m_ligne[m_rang + 1];
    if (d >= b.distance) return b.altitude;
    if (d <= a.distance) return a.altitude;
    return plv::altitudeVraie(a.altitude.valeur +
                              (b.altitude - a.altitude) * ((d - a.distance) / (b.distance - a.distance)));
  }

 private:
  const listeSommets& m_ligne;
  std::size_t m_rang = 0;
};

}  // namespace

std::optional<extremes> profondeursExtremes(const listeSommets& terrain, const listeSommets& ligne) {
  if (terrain.size() < 2 || ligne.size() < 2 || !versLaDroite(terrain) || !versLaDroite(ligne)) return std::nullopt;
  plv::distanceProfil ici = ligne.front().distance;
  const plv::distanceProfil fin = ligne.back().distance;
  if (!(ici < fin) || terrain.front().distance - ici > plv::kToleranceStation ||
      fin - terrain.back().distance > plv::kToleranceStation)
    return std::nullopt;
  std::optional<extremes> trouve;
  troncon dessus(terrain), dessous(ligne);
  const auto mesurer = [&](plv::distanceProfil d) {
    const mesure m{d, plv::profondeurSous(dessus.altitude(d), dessous.altitude(d))};
    if (!trouve) trouve = extremes{m, m};
    if (m.profondeur < trouve->moindre.profondeur) trouve->moindre = m;
    if (m.profondeur > trouve->plusGrande.profondeur) trouve->plusGrande = m;
  };
  while (ici < fin) {
    dessus.avancer(ici);
    dessous.avancer(ici);
    // Beyond the ground's end, by no more than the tolerance, its last altitude is used.
    plv::distanceProfil suivant = dessous.fin();
    if (dessus.fin() > ici) suivant = std::min(suivant, dessus.fin());
    mesurer(ici);
    mesurer(suivant);
    ici = suivant;
  }
  return trouve;
}

}  // namespace etu
