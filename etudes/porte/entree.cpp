// The messages of the host: functions are published with each drawing and withdrawn with it.
// Nothing of the plug-in outlives a call.
#include "etudes/porte/entree.h"

#include "etudes/porte/table.h"

namespace etu {

AcRx::AppRetCode entree(AcRx::AppMsgCode message, void* application) {
  switch (message) {
    case AcRx::kInitAppMsg:
      acrxUnlockApplication(application);
      acrxRegisterAppMDIAware(application);
      break;
    case AcRx::kLoadDwgMsg: publier(); break;
    case AcRx::kUnloadDwgMsg: retirer(); break;
    case AcRx::kInvkSubrMsg: appeler(); break;
    default: break;
  }
  return AcRx::kRetOK;
}

}  // namespace etu
