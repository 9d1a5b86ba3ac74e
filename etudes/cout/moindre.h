// The line of least cost between manholes, and what no line costs less than.
#pragma once
#include <optional>

#include "etudes/cout/chemin.h"

namespace etu {

struct ligneCout {
  std::vector<regardTrouve> regards;
  releve quantites;
  double cout = 0;
  double borne = 0;     // no line of any altitudes costs less, with manholes at the same places to choose from
  double coutRond = 0;  // of the cheapest line whose altitudes at manholes are multiples of the step; 0 if there is none
};
struct rechercheCout {
  std::optional<ligneCout> ligne;
  impasse ou{};
};

// Where altitudes have to be round (demande::pasAltitude) the cheapest of these lines; else one of any altitudes, never dearer. Nothing for
// what doesn't make sense in itself, or has too many levels to look at. Slopes that allow falling only (or rising only) make the line one
// where water flows; drops and pumping are then possible where the prices have them.
std::optional<rechercheCout> moindreCout(const listeSommets& terrain, const demande& d, const demandeRegards& regards,
                                         const tarif& t, double pas);

}  // namespace etu
