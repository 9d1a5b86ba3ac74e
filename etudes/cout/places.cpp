// The corridor is that of the other lines, without crossings: a run passes these above or below.
#include "etudes/cout/places.h"

#include <algorithm>
#include <cmath>

#include "module/profil/profilLong.h"

namespace etu {

namespace {

demande sansCroisements(demande d) {
  d.croisements.clear();
  return d;
}

std::vector<double> distancesDes(const demande& d, const demandeRegards& regards, std::vector<bool>& obliges) {
  std::vector<double> fixes{d.debut, d.fin};
  for (const double x : regards.distances)
    if (x > d.debut + plv::kToleranceStation && x < d.fin - plv::kToleranceStation) fixes.push_back(x);
  std::ranges::sort(fixes);
  fixes.erase(
      std::unique(fixes.begin(), fixes.end(), [](double a, double b) { return b - a <= plv::kToleranceStation; }),
      fixes.end());
  std::vector<double> distances;
  for (std::size_t i = 0; i < fixes.size(); ++i) {
    distances.push_back(fixes[i]);
    obliges.push_back(true);
    if (i + 1 == fixes.size() || regards.espacement <= 0 || regards.pas <= 0) continue;
    const double longueur = fixes[i + 1] - fixes[i];
    const auto parts = static_cast<std::size_t>(std::max(1.0, std::ceil(longueur / regards.pas - 1e-9)));
    for (std::size_t k = 1; k < parts; ++k) {
      distances.push_back(fixes[i] + longueur * static_cast<double>(k) / static_cast<double>(parts));
      obliges.push_back(false);
    }
  }
  return distances;
}

}  // namespace

etude::etude(const listeSommets& terrain, const demande& d, const demandeRegards& regards)
    : m_demande(d),
      m_regards(regards),
      m_couloir(couloirDe(terrain, sansCroisements(d), {})),
      m_sol(couloirSous(terrain, d.debut, d.fin, {0, 0})) {
  std::vector<bool> obliges;
  const std::vector<double> distances = distancesDes(d, regards, obliges);
  for (const double x : distances) {
    m_couloir.couper(x);
    m_sol.couper(x);
  }
  for (std::size_t i = 0; i < distances.size(); ++i) {
    const double x = distances[i];
    const std::size_t rang = m_couloir.rangDe(x), sol = m_sol.rangDe(x);
    const limites& commun = m_couloir.portes[rang].passage;
    // A wall that leaves no passage is passed by a drop.
    const bool mur = commun.hauteur() < 0 && std::ranges::any_of(m_couloir.marches, [rang](const marche& m) {
                       return m.rang == rang && m.mur;
                     });
    const bool croise =
        std::ranges::any_of(d.croisements, [x](const croisement& c) { return c.debut < x && x < c.fin; });
    m_places.push_back({x, std::max(m_sol.avant(sol).haut, m_sol.apres(sol).haut), mur ? m_couloir.avant(rang) : commun,
                        mur ? m_couloir.apres(rang) : commun, static_cast<bool>(obliges[i]), croise});
  }
}

std::size_t etude::finDesSuivantes(std::size_t rang) const {
  const double loin = m_places[rang].distance + m_regards.espacement + plv::kToleranceStation;
  std::size_t fin = std::min(rang + 2, m_places.size());
  while (fin < m_places.size() && !m_places[fin - 1].oblige && m_places[fin].distance <= loin) ++fin;
  return fin;
}

bool etude::assezLoin(std::size_t gauche, std::size_t droite) const {
  return m_places[droite].distance - m_places[gauche].distance >= m_demande.longueur - plv::kToleranceStation;
}

troncon etude::entre(std::size_t gauche, std::size_t droite) const {
  const double debut = m_places[gauche].distance, longueur = m_places[droite].distance - debut;
  const auto part = [&](double distance) { return std::clamp((distance - debut) / longueur, 0.0, 1.0); };
  troncon t{longueur, {}, {}, {}};
  const std::size_t r0 = m_couloir.rangDe(debut), r1 = m_couloir.rangDe(m_places[droite].distance);
  t.passages.push_back({0, m_couloir.apres(r0)});
  for (std::size_t r = r0 + 1; r < r1; ++r)
    t.passages.push_back({part(m_couloir.portes[r].distance), m_couloir.portes[r].passage});
  t.passages.push_back({1, m_couloir.avant(r1)});
  for (const croisement& x : m_demande.croisements)
    if (x.fin > debut && x.debut < debut + longueur) t.obstacles.push_back({part(x.debut), part(x.fin), x.interdit});
  const std::size_t s0 = m_sol.rangDe(debut), s1 = m_sol.rangDe(m_places[droite].distance);
  for (std::size_t s = s0; s < s1; ++s)
    t.sol.push_back({part(m_sol.portes[s].distance), part(m_sol.portes[s + 1].distance), m_sol.apres(s).haut,
                     m_sol.avant(s + 1).haut});
  return t;
}

}  // namespace etu
