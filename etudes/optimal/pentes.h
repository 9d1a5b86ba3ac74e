// Limits of slope in a corridor. What no line within the slopes can reach is taken away from the corridor, and then slopes cost no
// further run: a line that is too steep somewhere can be laid flatter there with no more runs than it has.
#pragma once
#include <optional>

#include "etudes/optimal/couloir.h"

namespace etu {

// Rise per metre to the right; a line that may only fall has both negative.
struct pentes {
  double moindre, plusGrande;
};

// Two limits that no line within the slopes passes both: it would have to be above the one and below the other.
struct contradiction {
  double basse, haute;  // the distances of the lower limit and of the upper one
  double manque;        // metres
};

// What the slopes leave of a corridor. Of several contradictions the one that lacks most is given; there is none when a line exists.
// Without slopes the corridor stays as it is, and a contradiction is a door that is shut.
struct reduction {
  couloir reste;
  std::optional<contradiction> faute;
};
reduction reduire(const couloir& c, const std::optional<pentes>& p);

// The line, laid flatter where it leaves the slopes; in a corridor that was reduced it stays in it, with no more runs.
ligneDroite dansLesPentes(const ligneDroite& ligne, const pentes& p);

}  // namespace etu
