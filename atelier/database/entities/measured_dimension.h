// What a dimension measures, for drawings that leave it out.
#pragma once
#include <optional>

#include "atelier/database/records/record.h"

namespace atelier {

// Length that a linear, aligned, radial, diametric or ordinate dimension measures, in units of the drawing; nothing for
// an angle. Reference: DXF reference, "DIMENSION".
std::optional<double> measured(const Record& dimension);

}  // namespace atelier
