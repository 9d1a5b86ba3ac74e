// The functions of this room that the plug-in publishes; their help stands in porte/table.cpp.
#pragma once

namespace etu {

void et_empreinte();
void et_noter_textes();
void et_ecarts();
void et_textes();
void et_somme();
void et_dans_bande();
void et_entites();

}  // namespace etu
