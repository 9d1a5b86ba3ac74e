// The module's one entry: the host hands it the application's messages.
// Whatever a step does, the answer is kRetOK.
#pragma once
#include "hote/acrx.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);
