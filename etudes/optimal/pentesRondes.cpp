// Dynamic programming from left to right, as with levels; from each place only the slopes that are multiples are followed.
#include "etudes/optimal/pentesRondes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "etudes/base/arret.h"

namespace etu {

namespace {

// Places times the stations that each of them sees, about; beyond the second number the steps are too small for the corridor.
constexpr double kVues = 2e7, kVuesAuPlus = 4e8;
// Parts of the distance after which every round slope comes to a rounded altitude: 0.50, 1, 2, 5 or 10 m for a centimetre and 0.1 %.
constexpr std::int64_t kParts[] = {20, 10, 5, 2, 1};
constexpr double kArrondi = 1e-7;  // of a step: what rounding may take from it

struct noeudRond {
  std::size_t droites = std::numeric_limits<std::size_t>::max();
  double aire = 0;
  std::size_t station = 0;  // of the place before, with its level
  std::int64_t niveau = 0;
  bool atteint() const { return droites != std::numeric_limits<std::size_t>::max(); }
};

struct colonne {
  double distance;
  std::int64_t bas;  // the lowest level
  std::vector<noeudRond> noeuds;
  std::int64_t haut() const { return bas + static_cast<std::int64_t>(noeuds.size()) - 1; }
};

std::int64_t auDessus(double v) { return std::llround(std::ceil(v - kArrondi)); }
std::int64_t auDessous(double v) { return std::llround(std::floor(v + kArrondi)); }

class filetRond {
 public:
  filetRond(const couloir& c, const exigences& e, std::size_t droites)
      : m_couloir(c), m_exigences(e), m_droites(static_cast<double>(droites)) {}
  std::optional<ligneDroite> ligne();

 private:
  double vues(double hauteur) const;
  bool espacer();
  void poser();
  double altitude(std::size_t station, std::int64_t niveau) const;
  struct buts {
    std::int64_t de, vers, pas;
  };
  buts butsDe(std::size_t station, std::int64_t niveau, std::size_t la, const cone& vue) const;
  void suivre(std::size_t station, std::int64_t niveau);
  void finir(std::size_t station, std::int64_t niveau, cone& vue, const noeudRond& a);
  bool proposer(noeudRond& b, double zFin, double dx, std::size_t station, std::int64_t niveau,
                const noeudRond& a) const;
  bool departDonne(std::size_t station) const { return station == 0 && m_exigences.debutDonne; }

  const couloir& m_couloir;
  exigences m_exigences;
  double m_droites;  // that are to be expected: the more, the fewer stations a place sees
  double m_pas = 0, m_niveau = 0, m_z0 = 0;
  std::int64_t m_parts = 1;         // after so many stations every round slope comes to a level
  std::vector<colonne> m_colonnes;  // without the end
  noeudRond m_fin;
  double m_zFin = 0;
};

// A given start has the level 0 of its own.
double filetRond::altitude(std::size_t station, std::int64_t niveau) const {
  if (departDonne(station)) return m_couloir.portes.front().passage.bas;
  return m_z0 + m_niveau * static_cast<double>(niveau);
}

double filetRond::vues(double hauteur) const {
  const double stations = (m_couloir.fin() - m_couloir.debut()) / m_pas;
  return stations * stations * std::max(1.0, hauteur / m_niveau) / m_droites;
}

// How far apart stations and levels are; false when these would be too many.
bool filetRond::espacer() {
  const double longueur = m_couloir.fin() - m_couloir.debut(), pas = m_exigences.pasPente;
  double hauteur = 0.1;
  for (const porte& p : m_couloir.portes) hauteur = std::max(hauteur, p.passage.hauteur());
  if (m_exigences.pasAltitude <= 0) {
    m_pas = std::ceil(10 * std::cbrt(longueur * longueur * hauteur / (pas * kVues * m_droites))) / 10;
    m_niveau = pas * m_pas;
    return vues(hauteur) < kVuesAuPlus;
  }
  m_niveau = m_exigences.pasAltitude;
  for (const std::int64_t parts : kParts) {
    m_parts = parts;
    m_pas = m_niveau / pas / static_cast<double>(parts);
    if (vues(hauteur) < kVues) return true;
  }
  return vues(hauteur) < kVuesAuPlus;
}

// The stations and their levels; in a corridor that narrows to nothing a station may have none.
void filetRond::poser() {
  if (!espacer()) return;
  if (m_exigences.pasAltitude <= 0) m_z0 = m_couloir.portes.front().passage.bas;
  for (std::size_t k = 0; m_couloir.debut() + m_pas * static_cast<double>(k) < m_couloir.fin() - 0.1 * m_pas; ++k) {
    const double d = m_couloir.debut() + m_pas * static_cast<double>(k);
    const limites l = m_couloir.entre(m_couloir.rangDe(d), d);
    const bool donne = departDonne(k);
    const std::int64_t bas = donne ? 0 : auDessus((l.bas - m_z0) / m_niveau),
                       haut = donne ? 0 : auDessous((l.haut - m_z0) / m_niveau);
    m_colonnes.push_back(
        {d, bas, std::vector<noeudRond>(static_cast<std::size_t>(std::max<std::int64_t>(0, haut - bas + 1)))});
  }
}

// Whether this way is better than the one so far, which it then replaces.
bool filetRond::proposer(noeudRond& b, double zFin, double dx, std::size_t station, std::int64_t niveau,
                         const noeudRond& a) const {
  const double aire = a.aire + 0.5 * dx * (altitude(station, niveau) + zFin);
  if (a.droites + 1 > b.droites || (a.droites + 1 == b.droites && aire <= b.aire)) return false;
  b = {a.droites + 1, aire, station, niveau};
  return true;
}

// The levels of a later station to which a run passes and has a round slope: every so many from one to another one.
filetRond::buts filetRond::butsDe(std::size_t station, std::int64_t niveau, std::size_t la, const cone& vue) const {
  const colonne& c = m_colonnes[la];
  const double dx = c.distance - m_colonnes[station].distance, z = altitude(station, niveau);
  const double moindre = std::max(vue.moindre(), (altitude(la, c.bas) - z) / dx),
               plusGrande = std::min(vue.plusGrande(), (altitude(la, c.haut()) - z) / dx);
  // From a given start to rounded altitudes a run may have any slope.
  if (departDonne(station) && m_exigences.pasAltitude > 0)
    return {auDessus((z + moindre * dx - m_z0) / m_niveau), auDessous((z + plusGrande * dx - m_z0) / m_niveau), 1};
  const auto stations = static_cast<std::int64_t>(la - station), commun = std::gcd(stations, m_parts);
  // Over these stations a slope comes to a level when it is a multiple of so many steps.
  const std::int64_t pas = stations / commun, pentesParPas = m_parts / commun;
  const double pente = m_exigences.pasPente * static_cast<double>(pentesParPas);
  return {niveau + auDessus(moindre / pente) * pas, niveau + auDessous(plusGrande / pente) * pas, pas};
}

// Leads straight runs on from a place that is reached, to later stations and to the end.
void filetRond::suivre(std::size_t station, std::int64_t niveau) {
  const colonne& ici = m_colonnes[station];
  const noeudRond a = ici.noeuds[static_cast<std::size_t>(niveau - ici.bas)];
  cone vue(m_couloir, m_exigences, {ici.distance, altitude(station, niveau)});
  for (std::size_t j = station + 1; j < m_colonnes.size(); ++j) {
    colonne& la = m_colonnes[j];
    const double dx = la.distance - ici.distance;
    if (!vue.avancer(la.distance)) return;
    if (dx < m_exigences.longueur || la.noeuds.empty()) continue;
    const buts b = butsDe(station, niveau, j, vue);
    for (std::int64_t but = b.de; but <= b.vers; but += b.pas)
      if (but >= la.bas && but <= la.haut())
        proposer(la.noeuds[static_cast<std::size_t>(but - la.bas)], altitude(j, but), dx, station, niveau, a);
  }
  finir(station, niveau, vue, a);
}

void filetRond::finir(std::size_t station, std::int64_t niveau, cone& vue, const noeudRond& a) {
  const double dx = m_couloir.fin() - m_colonnes[station].distance, z = altitude(station, niveau);
  const limites bout = m_couloir.portes.back().passage;
  if (dx < m_exigences.longueur || !vue.avancer(m_couloir.fin())) return;
  double zFin = bout.bas;
  if (!m_exigences.finDonnee) {
    const double plusGrande = std::min(vue.plusGrande(), (bout.haut - z) / dx), pas = m_exigences.pasPente;
    zFin = z + static_cast<double>(auDessous(plusGrande / pas)) * pas * dx;
    if (zFin < bout.bas - kToleranceCouloir) return;
  }
  if (vue.voit({m_couloir.fin(), zFin}) && proposer(m_fin, zFin, dx, station, niveau, a)) m_zFin = zFin;
}

std::optional<ligneDroite> filetRond::ligne() {
  poser();
  if (m_colonnes.empty()) return std::nullopt;
  for (noeudRond& n : m_colonnes.front().noeuds) n.droites = 0;
  for (std::size_t i = 0; i < m_colonnes.size(); ++i) {
    demanderArret();
    for (std::size_t k = 0; k < m_colonnes[i].noeuds.size(); ++k)
      if (m_colonnes[i].noeuds[k].atteint()) suivre(i, m_colonnes[i].bas + static_cast<std::int64_t>(k));
  }
  if (!m_fin.atteint()) return std::nullopt;
  ligneDroite resultat{{m_couloir.fin(), m_zFin}};
  for (noeudRond n = m_fin; n.droites > 0;) {
    const colonne& la = m_colonnes[n.station];
    resultat.push_back({la.distance, altitude(n.station, n.niveau)});
    n = la.noeuds[static_cast<std::size_t>(n.niveau - la.bas)];
  }
  std::reverse(resultat.begin(), resultat.end());
  return resultat;
}

}  // namespace

std::optional<ligneDroite> ligneAPentesRondes(const couloir& c, const exigences& e, std::size_t droitesAttendues) {
  return filetRond(c, e, droitesAttendues).ligne();
}

}  // namespace etu
