// Each vertex has places where it may stand; a run from place to place has to pass all doors between. Of the ways through one
// place of each vertex the one with the greatest area below it is found by dynamic programming. The first places are spread
// between the windows from both ends, those of later rounds lie around the line found so far, which is always among them.
#include "etudes/optimal/choix.h"

#include <algorithm>
#include <limits>

#include "etudes/base/arret.h"

namespace etu {

namespace {

constexpr double kSansVoie = -std::numeric_limits<double>::infinity();
constexpr double kEcartSommets = 1e-3;  // metres between two vertices at least, as far as places are proposed
constexpr double kPasMoindre = 1e-5;    // of altitude, where the moves end
constexpr int kToursAuPlus = 80;
constexpr double kTravailAuPlus = 4e7;  // doors times places, in all rounds

struct place {
  pointLigne point;
  double aire = kSansVoie;  // the greatest area of a way from the start to here
  std::size_t depuis = 0;   // its place of the vertex before
};
using places = std::vector<place>;

struct intervalle {
  double debut, fin;
};

class choisir {
 public:
  choisir(const couloir& c, const parcours& aller, const parcours& retour, std::size_t droites, const exigences& e,
          const ligneDroite& connue);
  std::optional<ligneDroite> faire();

 private:
  void proposer(places& ou, double distance, double altitude) const;
  void proposer(std::size_t sommet, const std::vector<ligneDroite>& lignes);
  void semer();
  void resserrer(double part);
  void relier(const place& a, std::size_t rangA, places& vers) const;
  bool parcourir();

  const couloir& m_couloir;
  exigences m_exigences;
  std::vector<intervalle> m_stations;  // where each vertex may stand
  std::vector<places> m_places;
  std::vector<ligneDroite> m_connues;  // lines with as many runs
  ligneDroite m_ligne;                 // the best so far; empty before the first one
  double m_aire = kSansVoie;
};

choisir::choisir(const couloir& c, const parcours& aller, const parcours& retour, std::size_t droites,
                 const exigences& e, const ligneDroite& connue)
    : m_couloir(c), m_exigences(e), m_places(droites + 1) {
  ligneDroite renversee;
  for (auto p = retour.ligne.rbegin(); p != retour.ligne.rend(); ++p) renversee.push_back({-p->distance, p->altitude});
  for (const ligneDroite& ligne : {aller.ligne, renversee, connue})
    if (ligne.size() == m_places.size()) m_connues.push_back(ligne);
  if (e.simples() && !m_connues.empty()) {
    m_ligne = m_connues.front();
    m_aire = aireSous(m_ligne);
  }
  // Vertex i is reached by i runs, and from it the other runs reach the end.
  m_stations.push_back({c.debut(), c.debut()});
  for (std::size_t i = 1; i < droites; ++i) {
    const std::size_t reste = droites - i;
    const double depuis = reste <= retour.fenetres.size() ? -retour.fenetres[reste - 1].fin.distance : c.debut(),
                 jusque = i <= aller.fenetres.size() ? aller.fenetres[i - 1].fin.distance : c.fin();
    m_stations.push_back({std::min(depuis, jusque), std::max(depuis, jusque)});
  }
  m_stations.push_back({c.fin(), c.fin()});
}

void choisir::proposer(places& ou, double distance, double altitude) const {
  if (const auto z = altitudePermise(m_couloir, m_exigences, distance, altitude)) ou.push_back({{distance, *z}});
}

void choisir::proposer(std::size_t sommet, const std::vector<ligneDroite>& lignes) {
  for (const ligneDroite& ligne : lignes) proposer(m_places[sommet], ligne[sommet].distance, ligne[sommet].altitude);
}

// Places all over the part of the corridor where each vertex can stand.
void choisir::semer() {
  constexpr int kStations = 20, kHauteurs = 10;
  for (std::size_t i = 0; i < m_places.size(); ++i) {
    const intervalle& s = m_stations[i];
    const int pas = s.fin > s.debut ? kStations : 0;
    for (int k = 0; k <= pas; ++k) {
      const double d = pas ? s.debut + (s.fin - s.debut) * k / pas : s.debut;
      const limites l = m_couloir.entre(m_couloir.rangDe(d), d);
      for (int h = 0; h <= kHauteurs; ++h) proposer(m_places[i], d, l.bas + l.hauteur() * h / kHauteurs);
    }
    proposer(i, m_connues);
  }
}

// Places around the line: up, down, to the sides, and along the runs on both sides. The step is a part of the room there is.
void choisir::resserrer(double part) {
  for (std::size_t i = 0; i < m_places.size(); ++i) {
    places& ou = m_places[i];
    ou.clear();
    const pointLigne p = m_ligne[i];
    const limites l = m_couloir.entre(m_couloir.rangDe(p.distance), p.distance);
    const double dz = std::max(l.hauteur() * part, m_exigences.pasAltitude),
                 dx = (m_stations[i].fin - m_stations[i].debut) * part;
    const auto pente = [&](std::size_t j) {
      return (m_ligne[j + 1].altitude - m_ligne[j].altitude) / (m_ligne[j + 1].distance - m_ligne[j].distance);
    };
    for (const double x : {-dx, 0.0, dx}) {
      const double d = std::clamp(p.distance + x, m_stations[i].debut, m_stations[i].fin);
      for (const double z : {-dz, 0.0, dz}) proposer(ou, d, p.altitude + z);
      if (x == 0 || dx == 0) continue;
      if (i > 0) proposer(ou, d, p.altitude + pente(i - 1) * (d - p.distance));
      if (i + 1 < m_ligne.size()) proposer(ou, d, p.altitude + pente(i) * (d - p.distance));
      proposer(ou, d, std::numeric_limits<double>::max());
    }
    proposer(ou, p.distance, p.altitude);
  }
}

// Leads the ways that come to a place on to the places of the next vertex, which stand from left to right.
void choisir::relier(const place& a, std::size_t rangA, places& vers) const {
  cone vue(m_couloir, m_exigences, a.point);
  for (place& b : vers) {
    const double dx = b.point.distance - a.point.distance;
    if (dx < std::max(kEcartSommets, m_exigences.longueur)) continue;
    if (!vue.avancer(b.point.distance)) return;
    const double aire = a.aire + 0.5 * dx * (a.point.altitude + b.point.altitude);
    if (aire <= b.aire || !vue.voit(b.point)) continue;
    b.aire = aire;
    b.depuis = rangA;
  }
}

// The best way through the places; true when it is better than the line so far, which it then is.
bool choisir::parcourir() {
  for (places& ou : m_places)
    std::sort(ou.begin(), ou.end(), [](const place& a, const place& b) { return a.point.distance < b.point.distance; });
  for (place& p : m_places.front()) p.aire = 0;
  for (std::size_t i = 0; i + 1 < m_places.size(); ++i) {
    demanderArret();
    for (std::size_t k = 0; k < m_places[i].size(); ++k)
      if (m_places[i][k].aire != kSansVoie) relier(m_places[i][k], k, m_places[i + 1]);
  }
  const places& bouts = m_places.back();
  if (bouts.empty()) return false;
  auto ici = static_cast<std::size_t>(
      std::max_element(bouts.begin(), bouts.end(), [](const place& a, const place& b) { return a.aire < b.aire; }) -
      bouts.begin());
  if (bouts[ici].aire <= m_aire) return false;
  m_aire = bouts[ici].aire;
  m_ligne.resize(m_places.size());
  for (std::size_t i = m_places.size(); i-- > 0;) {
    m_ligne[i] = m_places[i][ici].point;
    ici = m_places[i][ici].depuis;
  }
  return true;
}

std::optional<ligneDroite> choisir::faire() {
  semer();
  parcourir();
  if (m_ligne.empty()) return std::nullopt;
  double travail = 0, part = 0.25;
  for (int tour = 0; tour < kToursAuPlus && travail < kTravailAuPlus && part > kPasMoindre; ++tour) {
    resserrer(part);
    if (!parcourir()) part /= 2;
    travail += static_cast<double>(m_couloir.portes.size()) * static_cast<double>(m_places[m_places.size() / 2].size());
  }
  return m_ligne;
}

}  // namespace

double aireSous(const ligneDroite& ligne) {
  double aire = 0;
  for (std::size_t i = 0; i + 1 < ligne.size(); ++i)
    aire += 0.5 * (ligne[i + 1].distance - ligne[i].distance) * (ligne[i].altitude + ligne[i + 1].altitude);
  return aire;
}

std::optional<ligneDroite> moindreFouille(const couloir& c, const parcours& aller, const parcours& retour,
                                          std::size_t droites, const exigences& e, const ligneDroite& connue) {
  return choisir(c, aller, retour, droites, e, connue).faire();
}

}  // namespace etu
