// The entry point of the second plug-in, which gets the host's messages to the application.
// It has its own name, so that both plug-ins can be linked into one program; in a shared library it is exported under
// the name that hosts look for (bibliotheque.cpp).
#pragma once
#include "hote/acrx.h"

namespace etu {

// The answer is always kRetOK.
AcRx::AppRetCode entree(AcRx::AppMsgCode message, void* application);

}  // namespace etu
