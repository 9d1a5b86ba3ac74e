// Checks of the vertical curves of a project line. Inner header of the room.
#pragma once
#include <optional>
#include <string>

#include "atelier/exchange/landxml.h"

namespace atelier::exchange {

struct CurveFault {
  std::size_t vertex;   // index
  std::string reason;   // French
  bool ofCurve = true;  // the vertices are good without it
};

// Completes circles that have a length and no radius, and shortens curves that overlap by no more than the rounding of
// written numbers. Gives the first fault that remains, if any. Adds to warnings, each with `where` and the station.
std::optional<CurveFault> checkCurves(Project& project, const std::string& where, std::vector<std::string>& warnings);

// "123.456": a station or a length for a message.
std::string metresText(double value);

}  // namespace atelier::exchange
