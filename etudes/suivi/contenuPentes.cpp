// Rows of slopes: pieces between two ticks, each with a tick of its own at either end, with a diagonal and words.
#include <algorithm>
#include <cmath>

#include "etudes/suivi/contenu.h"

namespace etu::suivi {

namespace {

constexpr double kMemeLieu = 1e-6;  // drawing units

struct etat {
  bool trait = false, ecrit = false, faux = false;
  std::vector<AcDbObjectId> siens;
};

bool memeLieu(double a, double b) { return std::abs(a - b) <= kMemeLieu; }

class comparaison {
 public:
  comparaison(const std::vector<morceau>& morceaux, const std::vector<element>& elements)
      : m_morceaux(morceaux), m_etats(morceaux.size()) {
    for (const element& e : elements)
      if (e.repere()) m_reperes.push_back({e, false});
      else compter(e);
  }

  void dire(const contenu::appel& fonction) {
    for (std::size_t i = 0; i < m_morceaux.size(); ++i) {
      if (juste(i) && prendreReperes(m_morceaux[i])) continue;
      fonction(static_cast<int>(i), std::nullopt);
      for (const AcDbObjectId id : m_etats[i].siens) fonction(std::nullopt, id);
    }
    for (const AcDbObjectId id : m_egares) fonction(std::nullopt, id);
    for (const auto& [repere, pris] : m_reperes)
      if (!pris) fonction(std::nullopt, repere.id);
  }

 private:
  void compter(const element& e) {
    const auto fin = std::ranges::lower_bound(m_morceaux, e.x2 - kMemeLieu, {}, &morceau::x2);
    if (fin == m_morceaux.end() || e.x1 < fin->x1 - kMemeLieu) return m_egares.push_back(e.id);
    etat& sien = m_etats[static_cast<std::size_t>(fin - m_morceaux.begin())];
    sien.siens.push_back(e.id);
    if (e.mots) {
      if (sien.ecrit || *e.mots != fin->mots) sien.faux = true;
      sien.ecrit = true;
    } else {
      if (sien.trait || e.montee != fin->montee || !memeLieu(e.x1, fin->x1) || !memeLieu(e.x2, fin->x2))
        sien.faux = true;
      sien.trait = true;
    }
  }

  bool juste(std::size_t i) const {
    const morceau& m = m_morceaux[i];
    return !m_etats[i].faux && m_etats[i].trait == (m.montee != kCourbe) && m_etats[i].ecrit == !m.mots.empty();
  }

  // Takes a tick for each end; none when one is missing.
  bool prendreReperes(const morceau& m) {
    const auto a = libre(m.x1), b = libre(m.x2);
    if (a == m_reperes.end() || b == m_reperes.end()) return false;
    a->second = b->second = true;
    return true;
  }
  using reperes = std::vector<std::pair<element, bool>>;
  reperes::iterator libre(double x) {
    auto r = std::ranges::lower_bound(m_reperes, x - kMemeLieu, {}, [](const auto& un) { return un.first.x1; });
    while (r != m_reperes.end() && r->second && memeLieu(r->first.x1, x)) ++r;
    return r != m_reperes.end() && memeLieu(r->first.x1, x) ? r : m_reperes.end();
  }

  const std::vector<morceau>& m_morceaux;
  std::vector<etat> m_etats;
  reperes m_reperes;  // those that are taken
  std::vector<AcDbObjectId> m_egares;
};

}  // namespace

void comparerMorceaux(const std::vector<morceau>& morceaux, const std::vector<element>& elements,
                      const contenu::appel& fonction) {
  comparaison(morceaux, elements).dire(fonction);
}

}  // namespace etu::suivi
