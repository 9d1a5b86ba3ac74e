// Where texts stand and what they say, as few numbers: by them a text is known that a hand has moved or rewritten.
#pragma once
#include <optional>
#include <span>
#include <vector>

#include "hote/dbid.h"
#include "hote/ge.h"

namespace etu {

// The point by which a text is placed (its alignment point, where it has one), and a checksum of its words below 2^24.
struct place {
  double x = 0, y = 0;
  double mots = 0;
};

struct texte {
  place lieu;
  double milieu = 0;     // an ordinate within the text
  bool coloree = false;  // has a colour of its own
};

// Nothing for an entity that is no single-line text.
std::optional<texte> lireTexte(AcDbObjectId id);

// What has become of the text of a place.
struct ecart {
  std::size_t texte, place;  // their numbers in the lists
  double dx, dy;
};

// The texts that don't stand at a place with its words, or that have a colour of their own, each with its place: the same one for a
// text that was rewritten, the nearest free one with the same words for one that was moved. A text without a place is left out.
std::vector<ecart> ecarts(std::span<const texte> textes, std::span<const place> places);

}  // namespace etu
