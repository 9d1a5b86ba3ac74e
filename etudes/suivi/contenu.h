// What stands in a row of a table, compared with what should.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "etudes/suivi/rangees.h"

namespace etu::suivi {

// A text, tick or diagonal.
struct element {
  AcDbObjectId id;
  double x1 = 0, x2 = 0;
  std::optional<int> montee;  // of a line that isn't upright
  std::optional<std::wstring> mots;
  bool repere() const { return !montee && !mots; }
};

class contenu {
 public:
  explicit contenu(rangee r) : m_rangee(std::move(r)) {}

  void prendre(const AcDbEntity& entite, AcDbObjectId id, const std::optional<place>& lieu);

  // Nothing is kept of the row: what stands there is found by its place, and all of it has to be written again, so that it is kept.
  void inconnue() { m_autres = true; }

  const rangee& ligne() const { return m_rangee; }
  const std::vector<AcDbObjectId>& entites() const { return m_entites; }
  // Whether a hand has changed a text.
  bool touchee() const { return m_touchee; }

  // Calls with what is wrong, (number or nothing, entity or nothing): a cell or piece that is missing or says something else, a thing
  // that is to go. False, without a call, for a row that has to be filled as a whole.
  using appel = std::function<void(std::optional<int>, std::optional<AcDbObjectId>)>;
  bool comparer(const appel& fonction);

 private:
  bool comparerCellules(const appel& fonction);
  rangee m_rangee;
  std::vector<AcDbObjectId> m_entites;
  std::vector<element> m_elements;
  bool m_touchee = false, m_autres = false;
};

// The same for a row of slopes: its pieces, from left to right, and what stands there.
void comparerMorceaux(const std::vector<morceau>& morceaux, const std::vector<element>& elements,
                      const contenu::appel& fonction);

}  // namespace etu::suivi
