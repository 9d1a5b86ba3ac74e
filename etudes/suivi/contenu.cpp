// Rows of cells: each a text at its abscissa.
#include "etudes/suivi/contenu.h"

#include <algorithm>
#include <cmath>

namespace etu::suivi {

namespace {

constexpr double kMemeLieu = 1e-6;  // drawing units

element elementDe(const texte& t, AcDbObjectId id) { return {id, t.lieu.x, t.lieu.x, {}, t.mots.kACharPtr()}; }

std::optional<element> lireElement(const AcDbEntity& entite, AcDbObjectId id) {
  if (const auto* ligne = AcDbLine::cast(&entite)) {
    AcGePoint3d a = ligne->startPoint(), b = ligne->endPoint();
    if (a.x > b.x) std::swap(a, b);
    element e{id, a.x, b.x, {}, {}};
    if (b.x - a.x > kMemeLieu) e.montee = std::abs(b.y - a.y) <= kMemeLieu ? 0 : b.y > a.y ? 1 : -1;
    return e;
  }
  return {};
}

}  // namespace

void contenu::prendre(const AcDbEntity& entite, AcDbObjectId id, const std::optional<place>& lieu) {
  m_entites.push_back(id);
  const bool compte = !m_rangee.cellules.empty() || !m_rangee.morceaux.empty();
  if (const auto* lu = AcDbText::cast(&entite)) {
    const texte t = lireTexte(*lu);
    if (lieu && !intact(t, *lieu)) m_touchee = true;
    if (compte) m_elements.push_back(elementDe(t, id));
  } else if (compte) {
    if (auto e = lireElement(entite, id)) m_elements.push_back(std::move(*e));
    else m_autres = true;
  }
}

bool contenu::comparer(const appel& fonction) {
  if (m_autres || m_elements.empty()) return false;
  std::ranges::stable_sort(m_elements, {}, &element::x1);
  if (m_rangee.morceaux.empty()) return comparerCellules(fonction);
  comparerMorceaux(m_rangee.morceaux, m_elements, fonction);
  return true;
}

bool contenu::comparerCellules(const appel& fonction) {
  const std::vector<cellule>& cellules = m_rangee.cellules;
  if (!std::ranges::all_of(m_elements, [](const element& e) { return e.mots.has_value(); })) return false;
  struct faute {
    std::optional<int> numero;
    std::optional<AcDbObjectId> id;
  };
  std::vector<faute> fautes;
  std::size_t i = 0, j = 0, ensemble = 0;
  while (i < m_elements.size() || j < cellules.size()) {
    const double dx = i == m_elements.size() ? 1 : j == cellules.size() ? -1 : m_elements[i].x1 - cellules[j].x;
    faute f;
    if (dx <= kMemeLieu) f.id = m_elements[i].id;
    if (dx >= -kMemeLieu) f.numero = static_cast<int>(j);
    const bool juste = f.id && f.numero && *m_elements[i].mots == cellules[j].mots;
    if (f.id && f.numero) ++ensemble;
    if (!juste) fautes.push_back(f);
    if (f.id) ++i;
    if (f.numero) ++j;
  }
  if (2 * ensemble < cellules.size()) return false;
  for (const faute& f : fautes) fonction(f.numero, f.id);
  return true;
}

}  // namespace etu::suivi
