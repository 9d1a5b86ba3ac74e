// Where texts stand and what they say, as few numbers: by them it is known that a hand has moved or rewritten one.
#pragma once
#include <optional>

#include "hote/dbents.h"

namespace etu::suivi {

// The point by which a text is placed (its alignment point, where it has one), and a checksum of its words below 2^24.
struct place {
  double x = 0, y = 0;
  double mots = 0;
};

struct texte {
  place lieu;
  bool coloree = false;  // has a colour of its own
  AcString mots;
};

texte lireTexte(const AcDbText& lu);

// An ordinate within a text, by which it belongs to a row.
double milieuDe(const AcDbText& lu);

bool memeEndroit(const place& a, const place& b);
// Whether a text stands at a place, with its words and without a colour of its own.
bool intact(const texte& t, const place& p);

}  // namespace etu::suivi
