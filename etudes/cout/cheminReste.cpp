// What is left to pay from each level to the end: with what it took to come there, it tells which levels a line of little cost
// may use.
#include <algorithm>

#include "etudes/base/arret.h"
#include "etudes/cout/chemin.h"

namespace etu {

namespace {

// Over the levels from the lowest up or from the highest down: `poser` gets a level and the least price of those before it.
template <class Prix, class Poser>
void balayer(int niveaux, bool enMontant, Prix prix, Poser poser) {
  double moindre = kSans;
  for (int i = 0; i < niveaux; ++i) {
    const int niveau = enMontant ? i : niveaux - 1 - i;
    poser(static_cast<std::size_t>(niveau), moindre);
    moindre = std::min(moindre, prix(static_cast<std::size_t>(niveau)));
  }
}

}  // namespace

// After a place: the least of all runs to the next ones.
void chemin::resterApres(std::size_t rang) {
  etat& e = m_etats[rang];
  const bool bout = rang + 1 == m_etats.size();
  e.resteDepart.assign(e.depart.size(), bout ? 0 : kSans);
  for (std::size_t suite = rang + 1; !bout && suite < m_etude.finDesSuivantes(rang); ++suite) {
    if (!m_etude.assezLoin(rang, suite)) continue;
    const etat& s = m_etats[suite];
    parcourir(rang, suite, [&](const couts::resultat& r, int ecart) {
      for (std::size_t i = 0; i < r.cout.size(); ++i) {
        const int de = r.premier + static_cast<int>(i);
        double& reste = e.resteDepart[static_cast<std::size_t>(de)];
        reste = std::min(reste, r.cout[i] + s.resteArrivee[static_cast<std::size_t>(de + ecart)]);
      }
    });
  }
}

// From its arrival: the manhole and what comes after it. A drop counts as if it could be of any height, so that this is at most
// what is left.
void chemin::resterAvant(std::size_t rang) {
  etat& e = m_etats[rang];
  e.resteArrivee.assign(e.depart.size(), kSans);
  for (std::size_t k = 0; k < e.depart.size(); ++k) e.resteArrivee[k] = e.resteDepart[k] + fond(rang, k);
  if (!change(rang)) return;
  if (m_tarif.chutes) resterParChute(rang);
  if (m_tarif.pompages) resterParPompage(rang);
}

void chemin::resterParChute(std::size_t rang) {
  etat& e = m_etats[rang];
  const bool droite = m_versLaDroite;
  balayer(
      e.niveaux.niveaux, droite, [&](std::size_t k) { return e.resteDepart[k] + (droite ? fond(rang, k) : 0); },
      [&](std::size_t k, double moindre) {
        const double reste = moindre + m_tarif.chutes->prix + (droite ? 0 : fond(rang, k));
        e.resteArrivee[k] = std::min(e.resteArrivee[k], reste);
      });
}

void chemin::resterParPompage(std::size_t rang) {
  etat& e = m_etats[rang];
  const bool droite = m_versLaDroite;
  const double metre = m_tarif.pompages->prixMetre, gratuit = metre * 2 * m_filet.mailles.allegement;
  const auto releve = [&](std::size_t k) {
    return (droite ? 1 : -1) * metre * m_filet.mailles.pas * static_cast<double>(k);
  };
  balayer(
      e.niveaux.niveaux, !droite,
      [&](std::size_t k) { return e.resteDepart[k] + releve(k) + (droite ? 0 : fond(rang, k)); },
      [&](std::size_t k, double moindre) {
        const double reste = moindre - releve(k) - gratuit + m_tarif.pompages->prix + (droite ? fond(rang, k) : 0);
        e.resteArrivee[k] = std::min(e.resteArrivee[k], reste);
      });
}

std::vector<limites> chemin::altitudesJusque(double cout) {
  for (std::size_t rang = m_etats.size(); rang-- > 0;) {
    demanderArret();
    resterApres(rang);
    resterAvant(rang);
  }
  const double demi = 0.5 * m_filet.mailles.pas;
  std::vector<limites> altitudes;
  for (const etat& e : m_etats) {
    limites l{kSans, -kSans};
    for (std::size_t k = 0; k < e.depart.size(); ++k) {
      if (std::min(e.arrivee[k] + e.resteArrivee[k], e.depart[k] + e.resteDepart[k]) > cout) continue;
      const double z = altitude(e, static_cast<int>(k));
      l = {std::min(l.bas, z - demi), std::max(l.haut, z + demi)};
    }
    altitudes.push_back(l);
  }
  return altitudes;
}

}  // namespace etu
