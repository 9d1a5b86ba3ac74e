// The search runs from both ends of each part of the corridor: a vertex stands between the windows of both.
#include "etudes/optimal/proposition.h"

#include <algorithm>

#include "etudes/optimal/choix.h"
#include "module/profil/profilLong.h"

namespace etu {

namespace {

// How far outside the band an end may lie; the places of picked ends are known to this.
constexpr double kToleranceBout = 1e-6;

bool fixer(porte& p, const std::optional<double>& altitude) {
  if (!altitude) return true;
  if (*altitude < p.passage.bas - kToleranceBout || *altitude > p.passage.haut + kToleranceBout) return false;
  p.passage = {*altitude, *altitude};
  return true;
}

bool couvre(const listeSommets& terrain, const demande& d) {
  return terrain.size() > 1 && d.fin - d.debut > plv::kToleranceStation &&
         d.profondeurs.moindre <= d.profondeurs.plusGrande &&
         terrain.front().distance.valeur <= d.debut + plv::kToleranceStation &&
         terrain.back().distance.valeur >= d.fin - plv::kToleranceStation &&
         std::is_sorted(terrain.begin(), terrain.end(),
                        [](const sommet& a, const sommet& b) { return a.distance < b.distance; });
}

// Between the upper limit of the corridor and a line that lies above all of it.
double aireAuDessus(const couloir& c) {
  double aire = 0;
  for (std::size_t i = 0; i + 1 < c.portes.size(); ++i)
    aire += 0.5 * (c.portes[i + 1].distance - c.portes[i].distance) * (c.apres(i).haut + c.avant(i + 1).haut);
  return aire;
}

ligneDroite renversee(const ligneDroite& ligne) {
  ligneDroite r;
  for (auto p = ligne.rbegin(); p != ligne.rend(); ++p) r.push_back({-p->distance, p->altitude});
  return r;
}

// The line through one part. Both searches find the same number; should the last digits let one of them pass where the other
// doesn't, its line is taken as it is.
std::optional<parcours> ligneDans(const couloir& c) {
  auto aller = moinsDeDroites(c);
  const auto retour = moinsDeDroites(renverse(c));
  if (!aller || !retour) return std::nullopt;
  if (aller->ligne.size() == retour->ligne.size()) aller->ligne = moindreFouille(c, *aller, *retour);
  else if (retour->ligne.size() < aller->ligne.size()) aller->ligne = renversee(retour->ligne);
  return aller;
}

}  // namespace

std::optional<couloir> couloirDe(const listeSommets& terrain, const demande& d) {
  if (!couvre(terrain, d)) return std::nullopt;
  couloir c = couloirSous(terrain, d.debut, d.fin, d.profondeurs);
  if (!fixer(c.portes.front(), d.zDebut) || !fixer(c.portes.back(), d.zFin)) return std::nullopt;
  return c;
}

std::optional<proposition> proposer(const listeSommets& terrain, const demande& d) {
  const auto tout = couloirDe(terrain, d);
  if (!tout) return std::nullopt;
  proposition p{};
  for (const couloir& c : parties(*tout)) {
    auto partie = ligneDans(c);
    if (!partie) return std::nullopt;
    p.aire -= aireSous(partie->ligne);
    p.parties.push_back(std::move(*partie));
  }
  const couloir sol = couloirSous(terrain, d.debut, d.fin, {0, 0});
  p.aire += aireAuDessus(sol);
  p.aireMoindre = d.profondeurs.moindre * (d.fin - d.debut);
  return p;
}

}  // namespace etu
