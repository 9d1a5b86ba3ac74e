// The functions of this room that the plug-in publishes; their help stands in porte/table.cpp.
#pragma once

namespace etu {

void et_empreinte();
void et_noter_rangees();
void et_renoter();
void et_ecarts();
void et_somme();
void et_a_corriger();
void et_entites();
void et_hors();
void et_bouts();
void et_departs();
void et_morceaux();
void et_reels();
void et_chaine();
void et_cotes();

}  // namespace etu
