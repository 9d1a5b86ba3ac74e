// The fewest straight runs from one end of a corridor to the other, by the windows of visibility (Suri 1986; Imai and Iri 1988).
// A window is the last line that some number of runs reaches: what lies beyond it is seen from no line with one run fewer.
#pragma once
#include <optional>
#include <vector>

#include "etudes/optimal/couloir.h"

namespace etu {

// From the place where the line of the window leaves its last support to the place where it meets the corridor's limit. No line
// of as many runs as there are windows up to this one passes beyond its end.
struct fenetre {
  pointLigne debut, fin;
};

struct parcours {
  std::vector<fenetre> fenetres;  // one fewer than runs
  ligneDroite ligne;              // runs through all windows, each as far as it goes
};

// The corridor has two doors or more, none of them empty. The number of runs is the least that the corridor has room for,
// exactly; the line keeps to the corridor within kToleranceCouloir. Nothing when the corridor is larger than the grid.
// Time and memory are linear in the number of doors.
std::optional<parcours> moinsDeDroites(const couloir& c);

}  // namespace etu
