// The published functions of this room; their arguments and results are in the table of etudes/porte/table.cpp.
#pragma once

namespace etu {

void et_profondeurs();
void et_ligne();
void et_couloir();

}  // namespace etu
