// The installation folder, where the plug-in keeps its settings.
// KAVEL_CHEMIN when set, else the user's data folder.
#pragma once
#include <string>

namespace atelier {

std::string installationFolder();

// The message for the user when nothing can be written there; empty when it can. The plug-in makes the folder when it
// starts.
std::string installationTrouble();

}  // namespace atelier
