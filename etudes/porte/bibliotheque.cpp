// The plug-in as a library that a host loads: its entry point under the name that hosts look for.
// Only the shared library has this file; in one program with the first plug-in the name would exist twice.
#include "etudes/porte/entree.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
  return etu::entree(message, application);
}
