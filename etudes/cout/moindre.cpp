// First the cheapest line of round altitudes, over all levels. Then levels that get finer and finer, at each step a bound for lines of any
// altitudes, the best line of these levels, and the altitudes that a line may use which costs no more: only there the next step looks.
#include "etudes/cout/moindre.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "etudes/cout/montee.h"

namespace etu {

namespace {

constexpr double kTropDeTravail = 1e11;  // runs: some minutes
constexpr double kTravailDeLaBorne = 1e9;
constexpr double kPlusFin = 1e-7;  // metres between levels
constexpr double kEcart = 5e-4;    // of the cost: near enough

// The quantities of the line, measured along it once more.
releve mesurer(const etude& e, const tarif& t, const std::vector<regardTrouve>& regards) {
  const auto& pente = e.demandee().pente;
  const bool versLaDroite = pente && pente->plusGrande <= 0;
  releve r;
  r.volumes.resize(t.fouille.size());
  const auto rangDe = [&](double distance) {
    return static_cast<std::size_t>(std::ranges::find(e.places(), distance, &place::distance) - e.places().begin());
  };
  for (std::size_t i = 0; i < regards.size(); ++i) {
    const regardTrouve& a = regards[i];
    ++r.regards;
    r.profondeurRegards += std::max(0.0, a.sol - std::min(a.entree, a.sortie));
    const double chute = versLaDroite ? a.entree - a.sortie : a.sortie - a.entree;
    if (chute > 0) ++r.chutes;
    if (chute < 0) {
      ++r.pompages;
      r.releve -= chute;
    }
    if (i + 1 == regards.size()) break;
    const regardTrouve& b = regards[i + 1];
    const troncon run = e.entre(rangDe(a.distance), rangDe(b.distance));
    const auto z = [&](double part) { return a.sortie + part * (b.entree - a.sortie); };
    for (const morceauSol& m : run.sol)
      ajouterFouille(r, t, (m.fin - m.debut) * run.longueur, m.zDebut - z(m.debut), m.zFin - z(m.fin));
  }
  return r;
}

// The limit of slopes that most of the runs keep to.
limiteSuivie limiteDe(const std::vector<regardTrouve>& regards, const demande& d, double pas) {
  if (!d.pente) return limiteSuivie::aucune;
  int moindre = 0, plusGrande = 0;
  for (std::size_t i = 0; i + 1 < regards.size(); ++i) {
    const double longueur = regards[i + 1].distance - regards[i].distance;
    const double montee = regards[i + 1].entree - regards[i].sortie;
    if (montee - d.pente->moindre * longueur < pas) ++moindre;
    if (d.pente->plusGrande * longueur - montee < pas) ++plusGrande;
  }
  return moindre + plusGrande == 0 ? limiteSuivie::aucune
         : moindre > plusGrande    ? limiteSuivie::moindre
                                   : limiteSuivie::plusGrande;
}

// A line of levels that follow a limit of slopes, where none arrives from round altitude to round altitude.
std::vector<regardTrouve> depart(const etude& e, const tarif& t, double pas) {
  if (!e.demandee().pente) return {};
  for (const limiteSuivie suit : {limiteSuivie::moindre, limiteSuivie::plusGrande})
    if (chemin c(e, t, {{pas}, suit}); c.chercher()) return c.regards();
  return {};
}

class resserrement {
 public:
  resserrement(const etude& e, const tarif& t, const ligneCout& ronde, double pas)
      : m_etude(e), m_tarif(t), m_pas(pas), m_cout(ronde.cout), m_suit(limiteDe(ronde.regards, e.demandee(), pas)) {}
  void faire(const std::vector<regardTrouve>& ronde);
  double borne() const { return std::min(m_borne, m_cout); }
  // Manholes of a line that costs less than the round one, if one was found.
  const std::vector<regardTrouve>& regards() const { return m_regards; }

 private:
  void proposer(std::vector<regardTrouve> regards);
  void chercherMieux();
  const etude& m_etude;
  const tarif& m_tarif;
  double m_pas, m_cout, m_borne = 0, m_travail = 0;
  limiteSuivie m_suit;
  std::vector<limites> m_altitudes;
  std::vector<regardTrouve> m_regards;
};

void resserrement::proposer(std::vector<regardTrouve> regards) {
  regards = relevee(m_etude, m_tarif, std::move(regards));
  const double cout = montant(mesurer(m_etude, m_tarif, regards), m_tarif);
  if (cout >= m_cout) return;
  m_cout = cout;
  m_regards = std::move(regards);
}

void resserrement::chercherMieux() {
  // The line will be raised: what it costs at its levels would keep it from lying along the limit of a class.
  chemin fin(m_etude, m_tarif, {{m_pas, 0, 0.5 * m_pas}, m_suit, m_altitudes});
  if (fin.chercher()) proposer(fin.regards());
}

void resserrement::faire(const std::vector<regardTrouve>& ronde) {
  proposer(ronde);
  for (;; m_pas *= 0.5) {
    chemin large(m_etude, m_tarif, {{m_pas, 0.5 * m_pas, 0.5 * m_pas}, m_suit, m_altitudes});
    m_travail += large.travail();
    if (m_borne > 0 && (m_travail > kTravailDeLaBorne || m_pas < kPlusFin)) return;
    // Where no line is left none costs less than the best one so far.
    m_borne = large.chercher() ? std::max(m_borne, large.cout()) : m_cout;
    if (m_cout - m_borne > kEcart * m_cout) chercherMieux();
    if (m_cout - m_borne <= kEcart * m_cout) return;
    m_altitudes = large.altitudesJusque(m_cout * (1 + 1e-9));
  }
}

}  // namespace

std::optional<rechercheCout> moindreCout(const listeSommets& terrain, const demande& d, const demandeRegards& regards,
                                         const tarif& t, double pas) {
  if (!convient(terrain, d) || !convient(t) || !(pas > 0) || !std::isfinite(pas)) return std::nullopt;
  const etude e(terrain, d, regards);
  rechercheCout resultat;
  chemin ronde(e, t, {{pas}});
  if (ronde.travail() > kTropDeTravail) return std::nullopt;
  const bool arrive = ronde.chercher(), libre = d.pasAltitude == 0;
  resultat.ou = ronde.ou();
  ligneCout ligne{arrive ? ronde.regards() : libre ? depart(e, t, pas) : std::vector<regardTrouve>{}, {}, 0, 0, 0};
  if (ligne.regards.empty()) return resultat;
  ligne.quantites = mesurer(e, t, ligne.regards);
  ligne.cout = montant(ligne.quantites, t);
  if (arrive) ligne.coutRond = ligne.cout;
  resserrement r(e, t, ligne, pas);
  r.faire(ligne.regards);
  if (libre && !r.regards().empty()) {
    ligne.regards = r.regards();
    ligne.quantites = mesurer(e, t, ligne.regards);
    ligne.cout = montant(ligne.quantites, t);
  }
  ligne.borne = std::min(r.borne(), ligne.cout);
  resultat.ligne = std::move(ligne);
  return resultat;
}

}  // namespace etu
