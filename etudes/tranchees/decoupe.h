// A placed network cut into pieces of trench within which ground, bottom, layers and rules are straight: at every vertex of a ground, at
// pits, where stretches change, and wherever a depth or a level passes a limit.
#pragma once
#include <vector>

#include "etudes/reseaux/situer.h"
#include "etudes/tranchees/coupe.h"

namespace etu {

// Grounds by which is dug: the one that depths count from, and the tops of the further layers, as reglesTranchees::sols has them.
struct solsTranchees {
  ligneDroites sol;
  std::vector<ligneDroites> couches;
};

// Whether a pit is dug for it here: nodes have none, and what belongs to another profile is dug there.
bool aUneFosse(const regard& n);

struct tranchees {
  const reseauPose& reseau;
  const reglesTranchees& regles;
  std::vector<ouvrage> ouvrages;  // left to right
  std::vector<piece> pieces;      // by their works, left to right
};

// Throws `refus` for what can't be dug, with the name and the station: pipes wider than their trench or above the ground, manholes whose
// pits meet, grounds with a gap, types without a width for what they hold.
tranchees decouper(const reseauPose& reseau, const reglesTranchees& regles, const solsTranchees& sols);

}  // namespace etu
