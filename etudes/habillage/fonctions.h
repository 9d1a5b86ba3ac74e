// The functions of this room that the plug-in publishes; their help stands in porte/table.cpp.
#pragma once

namespace etu {

void et_ecarter();
void et_placer();

}  // namespace etu
