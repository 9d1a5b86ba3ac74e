// The published functions of this room; their arguments and results are in the table of etudes/porte/table.cpp.
#pragma once

namespace etu {

void et_tranchees_sols();
void et_tranchees();

}  // namespace etu
