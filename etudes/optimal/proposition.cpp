// The search runs from both ends of each part of the corridor: a vertex stands between the windows of both.
#include "etudes/optimal/proposition.h"

#include <algorithm>
#include <cmath>

#include "etudes/optimal/choix.h"
#include "etudes/optimal/etages.h"
#include "etudes/optimal/pentesRondes.h"
#include "module/profil/profilLong.h"

namespace etu {

namespace {

// How many crossings are tried above and below; of more the way with more room is taken, unproven.
constexpr std::size_t kCroisementsEssayes = 6;
constexpr double kEncoreUnPeu = 1e-8;  // metres, beyond half of what lacks

double aireSousLeHaut(const couloir& c) {
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

couloir elargi(couloir c, double e) {
  const auto ouvrir = [e](limites& l) { l = {l.bas - e, l.haut + e}; };
  for (porte& p : c.portes) ouvrir(p.passage);
  for (marche& m : c.marches) {
    ouvrir(m.avant);
    ouvrir(m.apres);
  }
  return c;
}

// The parts of a corridor, a little wider perhaps, within the slopes, and what contradicts itself most.
struct passages {
  std::vector<couloir> restes;
  std::optional<contradiction> faute;
};
passages passagesDe(const std::vector<couloir>& morceaux, const std::optional<pentes>& p, double e) {
  passages resultat;
  for (const couloir& c : morceaux) {
    reduction r = reduire(e > 0 ? elargi(c, e) : c, p);
    if (r.faute && (!resultat.faute || r.faute->manque > resultat.faute->manque)) resultat.faute = r.faute;
    resultat.restes.push_back(std::move(r.reste));
  }
  return resultat;
}

// One way past the crossings.
class voie {
 public:
  voie(const listeSommets& terrain, const demande& d, std::vector<bool> dessus)
      : m_terrain(terrain), m_demande(d), m_dessus(std::move(dessus)), m_couloir(couloirDe(terrain, d, m_dessus)) {
    m_passages = passagesDe(parties(m_couloir), d.pente, 0);
    m_faute = m_passages.faute;
  }
  const std::optional<contradiction>& faute() const { return m_faute; }
  const couloir& toutLeCouloir() const { return m_couloir; }
  std::optional<proposition> ligne();

 private:
  std::optional<parcours> dans(const couloir& c, bool& prouve) const;
  const listeSommets& m_terrain;
  const demande& m_demande;
  std::vector<bool> m_dessus;
  couloir m_couloir;
  passages m_passages;
  std::optional<contradiction> m_faute;
};

// The line through one part. Both searches find the same number; should the last digits let one of them pass where the other
// doesn't, its number counts. Rounded or longer runs may have to be more.
std::optional<parcours> voie::dans(const couloir& c, bool& prouve) const {
  auto aller = moinsDeDroites(c);
  auto retour = moinsDeDroites(renverse(c));
  if (!aller || !retour) return std::nullopt;
  if (m_demande.pente) {
    aller->ligne = dansLesPentes(aller->ligne, *m_demande.pente);
    retour->ligne = renversee(dansLesPentes(renversee(retour->ligne), *m_demande.pente));
  }
  exigences e{m_demande.pente,
              m_demande.longueur,
              m_demande.pasAltitude,
              m_demande.pasPente,
              m_demande.zDebut && c.debut() == m_demande.debut,
              m_demande.zFin && c.fin() == m_demande.fin};
  if (m_faute) e.longueur = e.pasAltitude = e.pasPente = 0;  // it is only to show what lacks
  const std::size_t droites = std::min(aller->ligne.size(), retour->ligne.size()) - 1;
  auto trouve = e.pasPente > 0 ? ligneAPentesRondes(c, e, droites) : moindreFouille(c, *aller, *retour, droites, e);
  if (!trouve && e.pasPente == 0 && !e.simples())
    if (const auto plusLongue = ligneParEtages(c, e, droites))
      trouve = moindreFouille(c, *aller, *retour, plusLongue->size() - 1, e, *plusLongue);
  if (!trouve) return std::nullopt;
  prouve = prouve && trouve->size() == droites + 1;
  aller->ligne = std::move(*trouve);
  return aller;
}

std::optional<proposition> voie::ligne() {
  proposition p;
  if (m_faute) {
    p.pourquoi = impossible{causeDe(m_terrain, m_demande, m_dessus, m_faute->basse, false),
                            causeDe(m_terrain, m_demande, m_dessus, m_faute->haute, true), m_faute->manque};
    m_passages = passagesDe(parties(m_couloir), m_demande.pente, 0.5 * m_faute->manque + kEncoreUnPeu);
    if (m_passages.faute) return std::nullopt;
  }
  for (const couloir& c : m_passages.restes) {
    auto partie = dans(c, p.prouve);
    if (!partie) return std::nullopt;
    p.aire -= aireSous(partie->ligne);
    p.aireMoindre -= aireSousLeHaut(c);
    p.parties.push_back(std::move(*partie));
  }
  const double terrain = aireSousLeHaut(couloirSous(m_terrain, m_demande.debut, m_demande.fin, {0, 0}));
  p.aire += terrain;
  p.aireMoindre += terrain;
  return p;
}

std::size_t sommetsDe(const proposition& p) {
  std::size_t n = 0;
  for (const parcours& partie : p.parties) n += partie.ligne.size();
  return n;
}

// Without a contradiction, then with the one that lacks less, then with fewer vertices, then with less area.
bool mieux(const voie& a, const proposition& pa, const voie& b, const proposition& pb) {
  const double manqueA = a.faute() ? a.faute()->manque : 0, manqueB = b.faute() ? b.faute()->manque : 0;
  if (manqueA != manqueB) return manqueA < manqueB;
  return std::pair(sommetsDe(pa), pa.aire) < std::pair(sommetsDe(pb), pb.aire);
}

// The ways past the crossings that are tried: of a crossing that leaves room on one side only, that side; all ways, when asked for
// because each of these contradicts itself.
std::vector<std::vector<bool>> voiesDe(const listeSommets& terrain, const demande& d, bool chaque) {
  std::vector<std::vector<bool>> voies(1);
  for (std::size_t i = 0; i < d.croisements.size(); ++i) {
    demande seule = d;
    seule.croisements = {d.croisements[i]};
    const auto manque = [&](bool dessus) {
      const voie v(terrain, seule, {dessus});
      return v.faute() ? v.faute()->manque : 0;
    };
    const double manqueDessus = manque(true), manqueDessous = manque(false);
    const bool lesDeux = (chaque || manqueDessus == manqueDessous) && i < kCroisementsEssayes;
    const std::size_t n = voies.size();
    for (std::size_t k = 0; k < n; ++k) {
      if (lesDeux) {
        voies.push_back(voies[k]);
        voies.back().push_back(false);
      }
      voies[k].push_back(lesDeux || manqueDessus <= manqueDessous);
    }
  }
  return voies;
}

struct meilleure {
  couloir tout;
  proposition ligne;
};

std::optional<meilleure> meilleureVoie(const listeSommets& terrain, const demande& d, bool chaque) {
  std::optional<voie> choisie;
  std::optional<proposition> resultat;
  bool ouverte = false;
  for (const auto& dessus : voiesDe(terrain, d, chaque)) {
    voie v(terrain, d, dessus);
    auto p = v.ligne();
    ouverte = ouverte || !v.faute();
    if (!p || (resultat && !mieux(v, *p, *choisie, *resultat))) continue;
    resultat = std::move(p);
    choisie.emplace(std::move(v));
  }
  // Where nothing contradicts itself, but no line is rounded and long enough, that is the answer.
  if (!resultat || (ouverte && choisie->faute())) return std::nullopt;
  resultat->prouve = resultat->prouve && d.croisements.size() <= kCroisementsEssayes;
  return meilleure{choisie->toutLeCouloir(), std::move(*resultat)};
}

std::optional<meilleure> chercher(const listeSommets& terrain, const demande& d) {
  if (!convient(terrain, d)) return std::nullopt;
  auto m = meilleureVoie(terrain, d, false);
  return d.croisements.size() > 1 && (!m || m->ligne.pourquoi) ? meilleureVoie(terrain, d, true) : std::move(m);
}

}  // namespace

std::optional<proposition> proposer(const listeSommets& terrain, const demande& d) {
  auto m = chercher(terrain, d);
  if (!m) return std::nullopt;
  return std::move(m->ligne);
}

std::optional<couloir> couloirPropose(const listeSommets& terrain, const demande& d) {
  auto m = chercher(terrain, d);
  if (!m) return std::nullopt;
  return std::move(m->tout);
}

}  // namespace etu
