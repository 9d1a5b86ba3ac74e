// The messages that the host sends to an application, and what the application registers with the host.
// An application has one entry point, which takes the messages.
#pragma once
#include "hote/rxobject.h"

namespace AcRx {
enum AppMsgCode {
  kNullMsg = 0,
  kInitAppMsg = 1,
  kUnloadAppMsg = 2,
  kLoadDwgMsg = 3,
  kUnloadDwgMsg = 4,
  kInvkSubrMsg = 5,
  kCfgMsg = 6,
  kEndMsg = 7,
  kQuitMsg = 8,
  kSaveMsg = 9
};
enum AppRetCode { kRetOK = 0, kRetError = 3 };
}  // namespace AcRx

// Besides its entry point an application exports the version of the interface that it was built for; the function comes
// with the host's libraries.
extern "C" int acrxGetApiVersion();

bool acrxUnlockApplication(void* appId);
bool acrxRegisterAppMDIAware(void* appId);
