// Whether the plug-in can keep its settings.
// Their folder is the installation folder.
#pragma once
#include <string>

namespace atelier {

// The message for the user when nothing can be written there; empty when it can. The plug-in makes the folder when it
// starts.
std::string installationTrouble();

}  // namespace atelier
