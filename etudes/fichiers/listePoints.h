// Point lists as text: x y z, or name x y z, with a header or without, any usual separator, a decimal point or comma.
// Comments begin with # or ;.
#pragma once
#include <string>

#include "etudes/surfaces/surface.h"

namespace etu {

// Appends the points of a file. Throws `refus` with the file and the line that can't be read, or for a file without points.
void lirePoints(const std::wstring& chemin, releve& r);

}  // namespace etu
