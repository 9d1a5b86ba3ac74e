// The corridor is made in one pass over the ground. Steps are rare and stand beside the doors, which stay small.
#include "etudes/optimal/couloir.h"

#include <algorithm>

#include "module/profil/profilLong.h"

namespace etu {

namespace {

limites sous(double altitude, const bande& b) { return {altitude - b.plusGrande, altitude - b.moindre}; }

double altitudeEntre(const sommet& a, const sommet& b, double distance) {
  const double t = (distance - a.distance.valeur) / (b.distance - a.distance);
  return a.altitude.valeur + t * (b.altitude - a.altitude);
}

// Adds a door with the altitudes of the ground on both sides of it.
void ajouter(couloir& c, double distance, double zAvant, double zApres, const bande& b) {
  const limites avant = sous(zAvant, b);
  c.portes.push_back({distance, avant});
  if (zAvant == zApres) return;
  const limites apres = sous(zApres, b);
  c.marches.push_back({c.portes.size() - 1, avant, apres, true});
  c.portes.back().passage = communes(avant, apres);
}

}  // namespace

limites communes(const limites& a, const limites& b) { return {std::max(a.bas, b.bas), std::min(a.haut, b.haut)}; }

const marche* couloir::marcheDe(std::size_t rang) const {
  if (marches.empty()) return nullptr;
  const auto m =
      std::lower_bound(marches.begin(), marches.end(), rang, [](const marche& a, std::size_t r) { return a.rang < r; });
  return m != marches.end() && m->rang == rang ? &*m : nullptr;
}

limites couloir::avant(std::size_t rang) const {
  const marche* m = marcheDe(rang);
  return m ? m->avant : portes[rang].passage;
}

limites couloir::apres(std::size_t rang) const {
  const marche* m = marcheDe(rang);
  return m ? m->apres : portes[rang].passage;
}

limites couloir::entre(std::size_t rang, double distance) const {
  if (distance <= portes[rang].distance || rang + 1 >= portes.size()) return portes[rang].passage;
  const limites a = apres(rang), b = avant(rang + 1);
  const double t = (distance - portes[rang].distance) / (portes[rang + 1].distance - portes[rang].distance);
  return {a.bas + t * (b.bas - a.bas), a.haut + t * (b.haut - a.haut)};
}

std::size_t couloir::rangDe(double distance) const {
  const auto apresElle =
      std::upper_bound(portes.begin(), portes.end(), distance, [](double d, const porte& p) { return d < p.distance; });
  return apresElle == portes.begin() ? 0 : static_cast<std::size_t>(apresElle - portes.begin()) - 1;
}

couloir couloirSous(const listeSommets& terrain, double debut, double fin, const bande& profondeurs) {
  couloir c;
  c.portes.reserve(terrain.size() + 2);
  std::size_t i = 0;
  while (i + 1 < terrain.size() && terrain[i + 1].distance.valeur <= debut + plv::kToleranceStation) ++i;
  const bool aPoint = i + 1 >= terrain.size() || terrain[i].distance.valeur >= debut - plv::kToleranceStation;
  const double z0 = aPoint ? terrain[i].altitude.valeur : altitudeEntre(terrain[i], terrain[i + 1], debut);
  ajouter(c, debut, z0, z0, profondeurs);
  for (++i; i < terrain.size() && terrain[i].distance.valeur < fin - plv::kToleranceStation; ++i) {
    const double distance = terrain[i].distance.valeur, avant = terrain[i].altitude.valeur;
    while (i + 1 < terrain.size() && terrain[i + 1].distance.valeur <= distance + plv::kToleranceStation) ++i;
    ajouter(c, distance, avant, terrain[i].altitude.valeur, profondeurs);
  }
  i = std::min(i, terrain.size() - 1);
  const bool exact = i == 0 || terrain[i].distance.valeur <= fin + plv::kToleranceStation;
  const double zn = exact ? terrain[i].altitude.valeur : altitudeEntre(terrain[i - 1], terrain[i], fin);
  ajouter(c, fin, zn, zn, profondeurs);
  return c;
}

couloir renverse(const couloir& c) {
  couloir r;
  r.portes.reserve(c.portes.size());
  for (auto p = c.portes.rbegin(); p != c.portes.rend(); ++p) r.portes.push_back({-p->distance, p->passage});
  for (auto m = c.marches.rbegin(); m != c.marches.rend(); ++m)
    r.marches.push_back({c.portes.size() - 1 - m->rang, m->apres, m->avant, m->mur});
  return r;
}

namespace {

// A band exactly as high as a wall leaves a passage of no height, which rounding may shut.
constexpr double kFermeParArrondi = 1e-10;

porte rouverte(porte p) {
  if (p.passage.hauteur() < 0 && p.passage.hauteur() >= -kFermeParArrondi)
    p.passage.bas = p.passage.haut = 0.5 * (p.passage.bas + p.passage.haut);
  return p;
}

}  // namespace

std::vector<couloir> parties(const couloir& c) {
  std::vector<couloir> resultat(1);
  auto m = c.marches.begin();
  for (std::size_t i = 0; i < c.portes.size(); ++i) {
    const bool pas = m != c.marches.end() && m->rang == i;
    couloir& ici = resultat.back();
    if (pas && m->mur && c.portes[i].passage.hauteur() < -kFermeParArrondi) {
      ici.portes.push_back({c.portes[i].distance, m->avant});
      resultat.emplace_back().portes.push_back({c.portes[i].distance, m->apres});
    } else {
      if (pas) ici.marches.push_back({ici.portes.size(), m->avant, m->apres, m->mur});
      ici.portes.push_back(rouverte(c.portes[i]));
    }
    if (pas) ++m;
  }
  return resultat;
}

}  // namespace etu
