// The door of the second plug-in: the host hands it the application's messages.
// It has a name of its own, so that both plug-ins can be linked into one program; as a library of its own it is exported under the
// name that hosts look for (bibliotheque.cpp).
#pragma once
#include "hote/acrx.h"

namespace etu {

// Whatever a step does, the answer is kRetOK.
AcRx::AppRetCode entree(AcRx::AppMsgCode message, void* application);

}  // namespace etu
