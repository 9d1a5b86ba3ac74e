// Dynamic programming from left to right: each place keeps the fewest runs to it, and with these the greatest area.
#include "etudes/optimal/etages.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "etudes/base/arret.h"

namespace etu {

namespace {

constexpr std::size_t kEtages = 24;
constexpr double kPairesAuPlus = 2e7;  // of places that see each other, about

struct noeud {
  pointLigne point;
  std::size_t droites = std::numeric_limits<std::size_t>::max();
  double aire = 0;
  std::size_t depuis = 0;
  bool atteint() const { return droites != std::numeric_limits<std::size_t>::max(); }
};

class filet {
 public:
  filet(const couloir& c, const exigences& e, std::size_t stations);
  std::optional<ligneDroite> ligne();

 private:
  void tendre(std::size_t depuis);
  const couloir& m_couloir;
  exigences m_exigences;
  std::vector<noeud> m_noeuds;  // from left to right
  double m_pas;
};

// All doors, and more between doors that are farther apart than the step; evenly spread ones where there are too many doors.
std::vector<double> stationsDe(const couloir& c, double pas) {
  std::vector<double> stations{c.debut()};
  const double regulieres = std::round((c.fin() - c.debut()) / pas);
  if (static_cast<double>(c.portes.size()) > regulieres) {
    for (double k = 1; k < regulieres; ++k) stations.push_back(c.debut() + pas * k);
    stations.push_back(c.fin());
    return stations;
  }
  for (std::size_t i = 0; i + 1 < c.portes.size(); ++i) {
    const double a = c.portes[i].distance, b = c.portes[i + 1].distance;
    const double n = std::ceil((b - a) / pas);
    for (double k = 1; k < n; ++k) stations.push_back(a + (b - a) * k / n);
    stations.push_back(b);
  }
  return stations;
}

filet::filet(const couloir& c, const exigences& e, std::size_t stations)
    : m_couloir(c), m_exigences(e), m_pas((c.fin() - c.debut()) / static_cast<double>(stations)) {
  for (const double d : stationsDe(c, m_pas)) {
    const limites l = c.entre(c.rangDe(d), d);
    for (std::size_t k = 0; k <= kEtages; ++k) {
      const double z = l.bas + l.hauteur() * static_cast<double>(k) / kEtages;
      const auto permise = altitudePermise(c, e, d, z);
      if (permise &&
          (m_noeuds.empty() || m_noeuds.back().point.distance != d || m_noeuds.back().point.altitude != *permise))
        m_noeuds.push_back({{d, *permise}});
    }
  }
}

// Leads straight runs on from a place that is reached.
void filet::tendre(std::size_t depuis) {
  const noeud a = m_noeuds[depuis];
  cone vue(m_couloir, m_exigences, a.point);
  for (std::size_t i = depuis + 1; i < m_noeuds.size(); ++i) {
    noeud& b = m_noeuds[i];
    const double dx = b.point.distance - a.point.distance;
    if (dx < std::max(0.1 * m_pas, m_exigences.longueur)) continue;
    if (!vue.avancer(b.point.distance)) return;
    if (!vue.voit(b.point)) continue;
    const double aire = a.aire + 0.5 * dx * (a.point.altitude + b.point.altitude);
    if (a.droites + 1 > b.droites || (a.droites + 1 == b.droites && aire <= b.aire)) continue;
    b.droites = a.droites + 1;
    b.aire = aire;
    b.depuis = depuis;
  }
}

std::optional<ligneDroite> filet::ligne() {
  for (noeud& n : m_noeuds)
    if (n.point.distance == m_couloir.debut()) n.droites = 0;
  for (std::size_t i = 0; i < m_noeuds.size(); ++i) {
    demanderArret();
    if (m_noeuds[i].atteint()) tendre(i);
  }
  const noeud* bout = nullptr;
  for (const noeud& n : m_noeuds)
    if (n.point.distance == m_couloir.fin() && n.atteint() &&
        (!bout || n.droites < bout->droites || (n.droites == bout->droites && n.aire > bout->aire)))
      bout = &n;
  if (!bout) return std::nullopt;
  ligneDroite resultat{bout->point};
  for (; bout->droites > 0; resultat.push_back(bout->point)) bout = &m_noeuds[bout->depuis];
  std::reverse(resultat.begin(), resultat.end());
  return resultat;
}

}  // namespace

std::optional<ligneDroite> ligneParEtages(const couloir& c, const exigences& e, std::size_t droitesAttendues) {
  const double noeuds = std::sqrt(kPairesAuPlus * static_cast<double>(droitesAttendues));
  return filet(c, e, static_cast<std::size_t>(noeuds / kEtages)).ligne();
}

}  // namespace etu
