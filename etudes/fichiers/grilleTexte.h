// Grids as text (ASC): whether one is whole. GDAL reads what lacks of the last line as altitudes 0.
#pragma once
#include <string>

namespace etu {

// False for a grid with a line of altitudes for each of its lines whose last one is shorter. True for other files.
bool grilleTexteEntiere(const std::wstring& chemin);

}  // namespace etu
