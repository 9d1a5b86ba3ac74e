// The functions of this room that the plug-in publishes; their help stands in porte/table.cpp.
#pragma once

namespace etu {

void et_empreinte();
void et_places();
void et_ecarts();

}  // namespace etu
