// The line of least cost between manholes: of all lines whose altitudes at manholes are multiples of a step none costs less.
#pragma once
#include <optional>
#include <string>

#include "etudes/cout/places.h"

namespace etu {

struct regardTrouve {
  double distance, sol, entree, sortie;  // the line's altitude on its left and on its right
};
struct ligneCout {
  std::vector<regardTrouve> regards;
  releve quantites;
  double cout = 0;
  double borne = 0;  // no line of any altitudes costs less, with manholes at the same places to choose from
};
// How far lines come where none arrives: the last place that one reaches, and the next one.
struct impasse {
  double atteinte, suivante;
};
struct rechercheCout {
  std::optional<ligneCout> ligne;
  impasse ou{};
};

// Nothing for what doesn't make sense in itself, or has too many levels to look at. Slopes that allow falling only (or rising only) make the line one where water
// flows; drops and pumping are then possible where the prices have them.
std::optional<rechercheCout> moindreCout(const listeSommets& terrain, const demande& d, const demandeRegards& regards,
                                         const tarif& t, double pas);

}  // namespace etu
