// The installation folder, where the plug-in keeps its settings.
// KAVEL_CHEMIN when set, else the user's data folder.
#pragma once
#include <string>

namespace atelier {

std::string installationFolder();

// What to tell the user when nothing can be kept there; empty when all is well. The plug-in makes the folder as soon as it is
// there.
std::string installationTrouble();

}  // namespace atelier
