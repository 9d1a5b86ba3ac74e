// The published functions of this room; their arguments and results are in the table of etudes/porte/table.cpp.
#pragma once

namespace etu {

void et_reseau_rangees();
void et_reseau();
void et_reseau_avis();

}  // namespace etu
