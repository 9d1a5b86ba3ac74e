// The rows of tables as published functions take them, and what stands in them.
// A row is (entity key x top [bottom [cells]]); a cell is (x words), x being that of its text, or for a row of slopes a piece (x1 x2 rise
// words), rise being 1, 0, -1, or 2 for a vertical curve. What was put in a row is kept in an Xrecord of
// the entity: a group 330 for each thing, behind that of a text a group 10 with its place, x from the row's x, y from its top, and the
// checksum of its words.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "etudes/suivi/places.h"
#include "hote/acdb.h"
#include "hote/dbents.h"

namespace etu::suivi {

struct cellule {
  double x = 0;
  std::wstring mots;
};

// Between two ticks a diagonal that rises, is level or falls, and words; a vertical curve has words only.
struct morceau {
  double x1 = 0, x2 = 0;
  int montee = 0;
  std::wstring mots;
};
inline constexpr int kCourbe = 2;

struct rangee {
  AcDbObjectId porteur;
  std::wstring cle;
  double x = 0, haut = 0, bas = 0;
  std::vector<cellule> cellules;
  std::vector<morceau> morceaux;
};

// A thing that was put in a row; a text with its place.
struct note {
  AcDbObjectId id;
  std::optional<place> lieu;
};

// The entities of a list that begins at this node, which moves behind it; a group stands for its members.
std::vector<AcDbObjectId> lireEntites(const resbuf*& noeud);
// Each once: what stands outside the tables' groups is listed with the profile, and some of it in both.
std::vector<AcDbObjectId> uniques(std::vector<AcDbObjectId> ids);
std::vector<rangee> lireRangees(const resbuf* noeud);

// Entities among which others are looked for.
class ensemble {
 public:
  explicit ensemble(const std::vector<AcDbObjectId>& ids);
  bool contains(AcDbObjectId id) const;

 private:
  std::vector<AcDbStub*> m_membres;  // sorted
};

// Between which ordinates an entity stands, a text by its middle; an entity is in a row when all of that is.
struct bande {
  double bas, haut;
  bool texte;
};
std::optional<bande> bandeDe(const AcDbEntity& entite);
bool contient(const rangee& r, const bande& b);

// What the row's record names. A copied row may name its original's things: only those that are among the members count.
std::vector<note> lireNotes(const rangee& r, const ensemble& membres);
void ecrireNotes(const rangee& r, const std::vector<note>& notes);
// As it is now.
note noterEntite(const AcDbEntity& entite, AcDbObjectId id);

}  // namespace etu::suivi
