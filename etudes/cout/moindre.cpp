// A shortest path from place to place over levels (Duque, Duque and Saldarriaga 2016, Journal of Hydroinformatics 18(5)):
// what comes to a level at a place is the least of all runs that end there, and a manhole passes it on to the
// same level, to a lower one by a drop, to a higher one by pumping. All runs of all slopes are looked at; nothing is left out.
#include "etudes/cout/moindre.h"

#include <algorithm>
#include <cmath>
#include <deque>

namespace etu {

namespace {

constexpr double kTropDeTravail = 1e11;  // runs: some minutes
constexpr double kTravailDeLaBorne = 3e8;
constexpr double kSans = std::numeric_limits<double>::infinity();

echelle echelleDe(const limites& l, const finesse& f) {
  const double bas = l.bas - f.marge, haut = l.haut + f.marge;
  // A place with one altitude only, as a fixed end, has that level.
  if (l.hauteur() >= 0 && l.hauteur() < f.pas && std::floor((haut + 1e-9) / f.pas) < std::ceil((bas - 1e-9) / f.pas))
    return {0.5 * (l.bas + l.haut), 1};
  if (l.hauteur() >= 0 && l.hauteur() <= 2e-9 && f.marge == 0) return {0.5 * (l.bas + l.haut), 1};
  const double premier = std::ceil((bas - 1e-9) / f.pas), dernier = std::floor((haut + 1e-9) / f.pas);
  return {premier * f.pas, premier <= dernier ? static_cast<int>(dernier - premier) + 1 : 0};
}

// The costs of arriving at and of leaving each level of a place, and where they come from.
struct etat {
  echelle niveaux;
  std::vector<double> arrivee, depart;
  std::vector<int> place, niveau;  // of each arrival
  std::vector<int> arrive;         // of each departure
};

class chemin {
 public:
  chemin(const etude& e, const tarif& t, const finesse& f) : m_etude(e), m_tarif(t), m_prix(t), m_finesse(f) {
    if (e.demandee().pente) {
      m_pentes = *e.demandee().pente;
      m_versLaDroite = m_pentes.plusGrande <= 0;
      m_coule = m_versLaDroite || m_pentes.moindre >= 0;
    }
  }
  // Whether a line arrives; `ou` tells how far lines come.
  bool chercher();
  // How many runs are looked at, about.
  double travail() const;
  double cout() const { return *std::ranges::min_element(m_etats.back().depart); }
  impasse ou() const { return m_ou; }
  std::vector<regardTrouve> regards() const;

 private:
  double coutRegard(const place& p, double bas) const {
    return m_tarif.prixRegard + m_tarif.prixMetreRegard * std::max(0.0, p.sol - bas - m_finesse.marge);
  }
  void relier(std::size_t gauche, std::size_t droite);
  void traverser(std::size_t rang);
  void tomber(std::size_t rang);
  void pomper(std::size_t rang);
  bool dans(const limites& l, double z) const {
    return z >= l.bas - m_finesse.marge - 1e-9 && z <= l.haut + m_finesse.marge + 1e-9;
  }

  const etude& m_etude;
  const tarif& m_tarif;
  prixParProfondeur m_prix;
  finesse m_finesse;
  pentes m_pentes{-kSans, kSans};
  bool m_coule = false, m_versLaDroite = false;
  std::vector<etat> m_etats;
  impasse m_ou{};
};

void chemin::relier(std::size_t gauche, std::size_t droite) {
  const etat& g = m_etats[gauche];
  etat& d = m_etats[droite];
  const troncon t = m_etude.entre(gauche, droite);
  couts c(t, m_prix, m_finesse);
  const double pas = m_finesse.pas, ecartBases = d.niveaux.base - g.niveaux.base;
  const auto borne = [&](double pente, double marge) {
    return std::clamp((pente * t.longueur + marge - ecartBases) / pas, -1e9, 1e9);
  };
  const double marge = 2 * m_finesse.marge + 1e-9;
  const int premier = std::max(1 - g.niveaux.niveaux, static_cast<int>(std::ceil(borne(m_pentes.moindre, -marge))));
  const int dernier = std::min(d.niveaux.niveaux - 1, static_cast<int>(std::floor(borne(m_pentes.plusGrande, marge))));
  for (int ecart = premier; ecart <= dernier; ++ecart) {
    const couts::resultat& r = c.pour(g.niveaux, d.niveaux, ecart);
    for (std::size_t i = 0; i < r.cout.size(); ++i) {
      const int de = r.premier + static_cast<int>(i);
      const auto a = static_cast<std::size_t>(de + ecart);
      const double cout = g.depart[static_cast<std::size_t>(de)] + r.cout[i];
      if (cout >= d.arrivee[a]) continue;
      d.arrivee[a] = cout;
      d.place[a] = static_cast<int>(gauche);
      d.niveau[a] = de;
    }
  }
}

// Water that comes to a higher level than it leaves at. To the right it falls from an arrival; to the left a departure is where it
// comes from.
void chemin::tomber(std::size_t rang) {
  etat& e = m_etats[rang];
  const place& p = m_etude.places()[rang];
  const int portee =
      static_cast<int>(std::floor((m_tarif.chutes->hauteur + 2 * m_finesse.marge + 1e-9) / m_finesse.pas));
  const int n = e.niveaux.niveaux, sens = m_versLaDroite ? 1 : -1;
  // Over the levels from the top (to the right) or from the bottom, the cheapest arrival within reach before each.
  const auto prix = [&](int arrivee) {
    const double fond = m_versLaDroite ? 0.0 : coutRegard(p, e.niveaux.altitude(arrivee, m_finesse.pas));
    return e.arrivee[static_cast<std::size_t>(arrivee)] + fond;
  };
  std::deque<int> moindres;
  for (int k = 0; k < n; ++k) {
    const int niveau = sens > 0 ? n - 1 - k : k;
    while (!moindres.empty() && std::abs(moindres.front() - niveau) > portee) moindres.pop_front();
    if (!moindres.empty()) {
      const double z = e.niveaux.altitude(niveau, m_finesse.pas);
      const double cout = prix(moindres.front()) + (m_versLaDroite ? coutRegard(p, z) : 0.0) + m_tarif.chutes->prix;
      if (const auto i = static_cast<std::size_t>(niveau); dans(p.sortie, z) && cout < e.depart[i]) {
        e.depart[i] = cout;
        e.arrive[i] = moindres.front();
      }
    }
    while (!moindres.empty() && prix(moindres.back()) >= prix(niveau)) moindres.pop_back();
    moindres.push_back(niveau);
  }
}

// Water that leaves at a higher level than it comes to.
void chemin::pomper(std::size_t rang) {
  etat& e = m_etats[rang];
  const place& p = m_etude.places()[rang];
  const int n = e.niveaux.niveaux, sens = m_versLaDroite ? 1 : -1;
  const double parNiveau = m_tarif.pompages->prixMetre * m_finesse.pas;
  const double gratuit = m_tarif.pompages->prixMetre * 2 * m_finesse.marge;
  int moindre = -1;
  double moindrePrix = kSans;
  for (int k = 0; k < n; ++k) {
    const int niveau = sens > 0 ? k : n - 1 - k;
    const double z = e.niveaux.altitude(niveau, m_finesse.pas);
    const double rang0 = parNiveau * k;
    if (moindre >= 0) {
      const double cout =
          moindrePrix + rang0 - gratuit + m_tarif.pompages->prix + (m_versLaDroite ? 0.0 : coutRegard(p, z));
      if (const auto i = static_cast<std::size_t>(niveau); dans(p.sortie, z) && cout < e.depart[i]) {
        e.depart[i] = cout;
        e.arrive[i] = moindre;
      }
    }
    const double prix = e.arrivee[static_cast<std::size_t>(niveau)] + (m_versLaDroite ? coutRegard(p, z) : 0.0) - rang0;
    if (prix < moindrePrix) {
      moindrePrix = prix;
      moindre = niveau;
    }
  }
}

void chemin::traverser(std::size_t rang) {
  etat& e = m_etats[rang];
  const place& p = m_etude.places()[rang];
  for (int k = 0; k < e.niveaux.niveaux; ++k) {
    const auto i = static_cast<std::size_t>(k);
    const double z = e.niveaux.altitude(k, m_finesse.pas);
    if (!dans(p.entree, z)) e.arrivee[i] = kSans;
    if (!dans(p.sortie, z)) continue;
    e.depart[i] = e.arrivee[i] + coutRegard(p, z);
    e.arrive[i] = k;
  }
  const bool bout = rang == 0 || rang + 1 == m_etude.places().size();
  if (bout || p.enCroisement || !m_coule) return;
  if (m_tarif.chutes) tomber(rang);
  if (m_tarif.pompages) pomper(rang);
}

double chemin::travail() const {
  double n = 0;
  const auto niveaux = [&](std::size_t i) {
    const place& p = m_etude.places()[i];
    return std::max(0.0, std::max(p.entree.haut, p.sortie.haut) - std::min(p.entree.bas, p.sortie.bas)) / m_finesse.pas;
  };
  for (std::size_t i = 0; i < m_etude.places().size(); ++i)
    for (std::size_t k = i + 1; k < m_etude.finDesSuivantes(i); ++k) n += niveaux(i) * niveaux(k);
  return n;
}

bool chemin::chercher() {
  const auto& places = m_etude.places();
  for (const place& p : places) {
    etat e;
    e.niveaux = echelleDe({std::min(p.entree.bas, p.sortie.bas), std::max(p.entree.haut, p.sortie.haut)}, m_finesse);
    const auto n = static_cast<std::size_t>(e.niveaux.niveaux);
    e.arrivee.assign(n, kSans);
    e.depart.assign(n, kSans);
    e.place.assign(n, -1);
    e.niveau.assign(n, -1);
    e.arrive.assign(n, -1);
    m_etats.push_back(std::move(e));
  }
  std::ranges::fill(m_etats.front().arrivee, 0.0);
  std::size_t loin = 0;
  for (std::size_t rang = 0; rang < places.size(); ++rang) {
    traverser(rang);
    const bool atteinte = std::ranges::any_of(m_etats[rang].depart, [](double c) { return c < kSans; });
    if (!atteinte) continue;
    loin = rang;
    for (std::size_t suite = rang + 1; suite < m_etude.finDesSuivantes(rang); ++suite)
      if (m_etude.assezLoin(rang, suite)) relier(rang, suite);
  }
  m_ou = {places[loin].distance, places[std::min(loin + 1, places.size() - 1)].distance};
  return loin + 1 == places.size();
}

std::vector<regardTrouve> chemin::regards() const {
  std::vector<regardTrouve> liste;
  const auto& fin = m_etats.back().depart;
  int rang = static_cast<int>(m_etats.size()) - 1;
  int sortie = static_cast<int>(std::ranges::min_element(fin) - fin.begin());
  while (rang >= 0) {
    const etat& e = m_etats[static_cast<std::size_t>(rang)];
    const place& p = m_etude.places()[static_cast<std::size_t>(rang)];
    const int entree = e.arrive[static_cast<std::size_t>(sortie)];
    liste.push_back(
        {p.distance, p.sol, e.niveaux.altitude(entree, m_finesse.pas), e.niveaux.altitude(sortie, m_finesse.pas)});
    rang = e.place[static_cast<std::size_t>(entree)];
    sortie = e.niveau[static_cast<std::size_t>(entree)];
  }
  std::ranges::reverse(liste);
  return liste;
}

// The quantities of the line, measured along it once more.
releve mesurer(const etude& e, const tarif& t, const std::vector<regardTrouve>& regards, bool versLaDroite) {
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

// The bound is the nearer the finer its levels are; finer ones are looked at as long as that takes a second or two.
double finesseDeLaBorne(double travail) {
  double finesse = 1;
  for (const double f : {2.0, 5.0, 10.0})
    if (travail * f * f <= kTravailDeLaBorne) finesse = f;
  return finesse;
}

}  // namespace

std::optional<rechercheCout> moindreCout(const listeSommets& terrain, const demande& d, const demandeRegards& regards,
                                         const tarif& t, double pas) {
  if (!convient(terrain, d) || !convient(t) || !(pas > 0) || !std::isfinite(pas)) return std::nullopt;
  const etude e(terrain, d, regards);
  rechercheCout resultat;
  chemin exact(e, t, {pas});
  if (exact.travail() > kTropDeTravail) return std::nullopt;
  const bool arrive = exact.chercher();
  resultat.ou = exact.ou();
  if (!arrive) return resultat;
  ligneCout ligne{exact.regards(), {}, 0, 0};
  ligne.quantites = mesurer(e, t, ligne.regards, d.pente && d.pente->plusGrande <= 0);
  ligne.cout = montant(ligne.quantites, t);
  const double pasBorne = pas / finesseDeLaBorne(exact.travail());
  chemin large(e, t, {pasBorne, 0.5 * pasBorne});
  ligne.borne = large.chercher() ? std::min(large.cout(), ligne.cout) : ligne.cout;
  resultat.ligne = std::move(ligne);
  return resultat;
}

}  // namespace etu
