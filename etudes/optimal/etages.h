// The fewest straight runs between places on a net of stations and levels, where runs have a least length or vertices round
// altitudes. It is exact on its net only: a finer one may have a line with fewer runs.
#pragma once
#include <optional>

#include "etudes/optimal/choix.h"

namespace etu {

// Of the lines with the fewest runs that with the greatest area below it. The net is the finer the more runs are to be expected,
// since each is seen from few places only then.
std::optional<ligneDroite> ligneParEtages(const couloir& c, const exigences& e, std::size_t droitesAttendues);

}  // namespace etu
