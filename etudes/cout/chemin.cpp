#include "etudes/cout/chemin.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <utility>

#include "etudes/base/arret.h"

namespace etu {

namespace {

constexpr double kMemeAltitude = 1e-9;  // metres

// The levels between two altitudes: those that lie there or, with a margin, those whose altitudes do.
echelle echelleDe(const limites& l, const finesse& f, double decalage) {
  if (l.hauteur() < -2 * kMemeAltitude) return {decalage, 0};
  const double bas = (l.bas - kMemeAltitude - decalage) / f.pas, haut = (l.haut + kMemeAltitude - decalage) / f.pas;
  const double premier = f.marge > 0 ? std::floor(bas + 0.5) : std::ceil(bas);
  const double dernier = f.marge > 0 ? std::floor(haut + 0.5) : std::floor(haut);
  // A place with one altitude only, as a fixed end, has that level, and so has one that lies between two levels.
  if (f.marge == 0 && (l.hauteur() <= 2 * kMemeAltitude || premier > dernier)) return {0.5 * (l.bas + l.haut), 1};
  return {decalage + premier * f.pas, static_cast<int>(dernier - premier) + 1};
}

limites commun(const limites& a, const limites& b) { return {std::max(a.bas, b.bas), std::min(a.haut, b.haut)}; }

}  // namespace

chemin::chemin(const etude& e, const tarif& t, filet f) : m_etude(e), m_tarif(t), m_prix(t), m_filet(std::move(f)) {
  if (e.demandee().pente) {
    m_pentes = *e.demandee().pente;
    m_versLaDroite = m_pentes.plusGrande <= 0;
    m_coule = m_versLaDroite || m_pentes.moindre >= 0;
  }
  const auto& places = e.places();
  for (std::size_t rang = 0; rang < places.size(); ++rang) {
    const place& p = places[rang];
    limites l{std::min(p.entree.bas, p.sortie.bas), std::max(p.entree.haut, p.sortie.haut)};
    if (!m_filet.altitudes.empty()) l = commun(l, m_filet.altitudes[rang]);
    etat niveaux;
    niveaux.niveaux = echelleDe(l, m_filet.mailles, penteSuivie() * (p.distance - places.front().distance));
    const auto n = static_cast<std::size_t>(niveaux.niveaux.niveaux);
    niveaux.arrivee.assign(n, kSans);
    niveaux.depart.assign(n, kSans);
    niveaux.place.assign(n, -1);
    niveaux.niveau.assign(n, -1);
    niveaux.arrive.assign(n, -1);
    m_etats.push_back(std::move(niveaux));
  }
}

double chemin::penteSuivie() const {
  switch (m_filet.suit) {
    case limiteSuivie::moindre: return m_pentes.moindre;
    case limiteSuivie::plusGrande: return m_pentes.plusGrande;
    default: return 0;
  }
}

double chemin::cout() const { return *std::ranges::min_element(m_etats.back().depart); }

double chemin::coutRegard(const place& p, double bas) const {
  return m_tarif.prixRegard + m_tarif.prixMetreRegard * std::max(0.0, p.sol - bas - m_filet.mailles.allegement);
}

double chemin::fond(std::size_t rang, std::size_t niveau) const {
  return coutRegard(m_etude.places()[rang], altitude(m_etats[rang], static_cast<int>(niveau)));
}

bool chemin::dans(const limites& l, double z) const {
  const double marge = m_filet.mailles.marge + kMemeAltitude;
  return z >= l.bas - marge && z <= l.haut + marge;
}

bool chemin::change(std::size_t rang) const {
  return m_coule && rang > 0 && rang + 1 < m_etats.size() && !m_etude.places()[rang].enCroisement;
}

// For each difference of levels between two places what the trenches of its runs cost.
void chemin::parcourir(std::size_t gauche, std::size_t droite, const vuDesTroncons& vu) const {
  const echelle &g = m_etats[gauche].niveaux, &d = m_etats[droite].niveaux;
  if (g.niveaux == 0 || d.niveaux == 0) return;
  const finesse& f = m_filet.mailles;
  const troncon t = m_etude.entre(gauche, droite);
  couts c(t, m_prix, f);
  // Levels that follow each other along a limit of slopes are on its right side as their altitudes are.
  const auto marge = [&](bool suivie) { return (suivie ? 0 : 2 * f.marge) + kMemeAltitude; };
  const auto ecart = [&](double montee) { return std::clamp((montee - (d.base - g.base)) / f.pas, -1e9, 1e9); };
  const double bas = m_pentes.moindre * t.longueur - marge(m_filet.suit == limiteSuivie::moindre);
  const double haut = m_pentes.plusGrande * t.longueur + marge(m_filet.suit == limiteSuivie::plusGrande);
  const int premier = std::max(1 - g.niveaux, static_cast<int>(std::ceil(ecart(bas))));
  const int dernier = std::min(d.niveaux - 1, static_cast<int>(std::floor(ecart(haut))));
  for (int e = premier; e <= dernier; ++e) vu(c.pour(g, d, e), e);
}

void chemin::relier(std::size_t gauche, std::size_t droite) {
  demanderArret();
  const etat& g = m_etats[gauche];
  etat& d = m_etats[droite];
  parcourir(gauche, droite, [&](const couts::resultat& r, int ecart) {
    for (std::size_t i = 0; i < r.cout.size(); ++i) {
      const int de = r.premier + static_cast<int>(i);
      const auto a = static_cast<std::size_t>(de + ecart);
      const double cout = g.depart[static_cast<std::size_t>(de)] + r.cout[i];
      if (cout >= d.arrivee[a]) continue;
      d.arrivee[a] = cout;
      d.place[a] = static_cast<int>(gauche);
      d.niveau[a] = de;
    }
  });
}

// Water that comes to a higher level than it leaves at. To the right it falls from an arrival; to the left a departure is where it
// comes from.
void chemin::tomber(std::size_t rang) {
  etat& e = m_etats[rang];
  const place& p = m_etude.places()[rang];
  const int portee =
      static_cast<int>(std::floor((m_tarif.chutes->hauteur + 2 * m_filet.mailles.marge + 1e-9) / m_filet.mailles.pas));
  const int n = e.niveaux.niveaux, sens = m_versLaDroite ? 1 : -1;
  // Over the levels from the top (to the right) or from the bottom, the cheapest arrival within reach before each.
  const auto prix = [&](int arrivee) {
    const double fond = m_versLaDroite ? 0.0 : coutRegard(p, altitude(e, arrivee));
    return e.arrivee[static_cast<std::size_t>(arrivee)] + fond;
  };
  std::deque<int> moindres;
  for (int k = 0; k < n; ++k) {
    const int niveau = sens > 0 ? n - 1 - k : k;
    while (!moindres.empty() && std::abs(moindres.front() - niveau) > portee) moindres.pop_front();
    if (!moindres.empty()) {
      const double z = altitude(e, niveau);
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
  const double parNiveau = m_tarif.pompages->prixMetre * m_filet.mailles.pas;
  const double gratuit = m_tarif.pompages->prixMetre * 2 * m_filet.mailles.allegement;
  int moindre = -1;
  double moindrePrix = kSans;
  for (int k = 0; k < n; ++k) {
    const int niveau = sens > 0 ? k : n - 1 - k;
    const double z = altitude(e, niveau);
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
    const double z = altitude(e, k);
    if (!dans(p.entree, z)) e.arrivee[i] = kSans;
    if (!dans(p.sortie, z)) continue;
    e.depart[i] = e.arrivee[i] + coutRegard(p, z);
    e.arrive[i] = k;
  }
  if (!change(rang)) return;
  if (m_tarif.chutes) tomber(rang);
  if (m_tarif.pompages) pomper(rang);
}

double chemin::travail() const {
  const auto& places = m_etude.places();
  double n = 0;
  for (std::size_t i = 0; i < m_etats.size(); ++i)
    for (std::size_t k = i + 1; k < m_etude.finDesSuivantes(i); ++k) {
      const double a = m_etats[i].niveaux.niveaux, b = m_etats[k].niveaux.niveaux;
      const double montees =
          (m_pentes.plusGrande - m_pentes.moindre) * (places[k].distance - places[i].distance) / m_filet.mailles.pas;
      n += std::min(a, b) * std::min(std::max(a, b), montees + 3);
    }
  return n;
}

bool chemin::chercher() {
  const auto& places = m_etude.places();
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
    liste.push_back({p.distance, p.sol, altitude(e, entree), altitude(e, sortie)});
    rang = e.place[static_cast<std::size_t>(entree)];
    sortie = e.niveau[static_cast<std::size_t>(entree)];
  }
  std::ranges::reverse(liste);
  return liste;
}

}  // namespace etu
