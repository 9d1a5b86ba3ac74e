#include "etudes/cout/montee.h"

#include <algorithm>
#include <cmath>

namespace etu {

namespace {

constexpr int kPassages = 40;     // over the line: each lets what one manhole left to the next one through
constexpr double kRien = 1e-12;   // metres
constexpr double kContre = 1e-9;  // metres: what a line may stand over a limit by

class montee {
 public:
  montee(const etude& e, const tarif& t, std::vector<regardTrouve>& regards) : m_tarif(t), m_regards(regards) {
    if (e.demandee().pente) m_pentes = *e.demandee().pente;
    m_versLaDroite = m_pentes.plusGrande <= 0;
    const auto rangDe = [&](double distance) {
      return static_cast<std::size_t>(std::ranges::find(e.places(), distance, &place::distance) - e.places().begin());
    };
    for (std::size_t i = 0; i < regards.size(); ++i) {
      const std::size_t rang = rangDe(regards[i].distance);
      m_places.push_back(&e.places()[rang]);
      if (i + 1 < regards.size()) m_troncons.push_back(e.entre(rang, rangDe(regards[i + 1].distance)));
    }
  }
  // Whether a manhole rose.
  bool monter(std::size_t i);

 private:
  double plafondGauche(std::size_t i) const;
  double plafondDroite(std::size_t i) const;
  const tarif& m_tarif;
  std::vector<regardTrouve>& m_regards;
  std::vector<const place*> m_places;
  std::vector<troncon> m_troncons;
  pentes m_pentes{-kSans, kSans};
  bool m_versLaDroite = false;
};

// How high the end of a run may be, `t` along it, when its other end stands at `autre`, (1 - t) along it, and passes under a limit.
double sousLimite(double limite, double t, double autre) { return t > 0 ? (limite - (1 - t) * autre) / t : kSans; }

// What the run on the left of a manhole lets it arrive at.
double montee::plafondGauche(std::size_t i) const {
  double plafond = m_places[i]->entree.haut;
  if (i == 0) return plafond;
  const troncon& r = m_troncons[i - 1];
  const double z = m_regards[i - 1].sortie, ici = m_regards[i].entree;
  plafond = std::min(plafond, z + m_pentes.plusGrande * r.longueur);
  for (const passage& p : r.passages) plafond = std::min(plafond, sousLimite(p.altitudes.haut, p.t, z));
  for (const obstacle& o : r.obstacles) {
    const auto a = [&](double t) { return z + t * (ici - z); };
    if (std::min(a(o.debut), a(o.fin)) >= o.interdit.haut - kContre) continue;
    for (const double t : {o.debut, o.fin}) plafond = std::min(plafond, sousLimite(o.interdit.bas, t, z));
  }
  return plafond;
}

// What the run on its right lets it leave at.
double montee::plafondDroite(std::size_t i) const {
  double plafond = m_places[i]->sortie.haut;
  if (i + 1 == m_regards.size()) return plafond;
  const troncon& r = m_troncons[i];
  const double z = m_regards[i + 1].entree, ici = m_regards[i].sortie;
  plafond = std::min(plafond, z - m_pentes.moindre * r.longueur);
  for (const passage& p : r.passages) plafond = std::min(plafond, sousLimite(p.altitudes.haut, 1 - p.t, z));
  for (const obstacle& o : r.obstacles) {
    const auto a = [&](double t) { return ici + t * (z - ici); };
    if (std::min(a(o.debut), a(o.fin)) >= o.interdit.haut - kContre) continue;
    for (const double t : {o.debut, o.fin}) plafond = std::min(plafond, sousLimite(o.interdit.bas, 1 - t, z));
  }
  return plafond;
}

bool montee::monter(std::size_t i) {
  regardTrouve& r = m_regards[i];
  const double gauche = plafondGauche(i), droite = plafondDroite(i);
  const auto lever = [](double& z, double plafond) {
    if (!(plafond > z + kRien)) return false;
    z = plafond;
    return true;
  };
  const double chute = m_versLaDroite ? r.entree - r.sortie : r.sortie - r.entree;
  if (chute < 0) return false;  // a metre of lift has a price
  if (chute > 0) {
    double &dessus = m_versLaDroite ? r.entree : r.sortie, &dessous = m_versLaDroite ? r.sortie : r.entree;
    const bool bas = lever(dessous, std::min(m_versLaDroite ? droite : gauche, dessus));
    return lever(dessus, std::min(m_versLaDroite ? gauche : droite, dessous + m_tarif.chutes->hauteur)) || bas;
  }
  if (!lever(r.entree, std::min(gauche, droite))) return false;
  r.sortie = r.entree;
  return true;
}

}  // namespace

std::vector<regardTrouve> relevee(const etude& e, const tarif& t, std::vector<regardTrouve> regards) {
  montee m(e, t, regards);
  for (int passage = 0; passage < kPassages; ++passage) {
    bool monte = false;
    for (std::size_t i = 0; i < regards.size(); ++i) monte |= m.monter(i);
    for (std::size_t i = regards.size(); i-- > 0;) monte |= m.monter(i);
    if (!monte) break;
  }
  return regards;
}

}  // namespace etu
