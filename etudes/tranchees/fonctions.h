// The published functions of this room; their arguments and results are in the table of etudes/porte/table.cpp.
#pragma once

namespace etu {

void et_tranchees_sols();
void et_tranchees();
void et_tranchees_classeur();
void et_tranchees_articles();
void et_tranchees_coupes();

}  // namespace etu
