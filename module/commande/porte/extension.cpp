// The library as an extension module of the platform's framework: tied to the process when it is loaded.
// Only the library has this file's function; a platform without such a call never makes it.
#include "hote/mfc.h"

namespace {

constexpr unsigned long kDetacher = 0, kAttacher = 1;

struct extensionModule {
  bool initialisee = false;
  AFX_EXTENSION_MODULE etat;
  void *module = nullptr, *ressources = nullptr;
} extension;

void attacher(void* instance) {
  if (extension.initialisee) return;
  extension.initialisee = AfxInitExtensionModule(extension.etat, instance);
  if (!extension.initialisee) return;
  extension.module = extension.etat.hModule;
  extension.ressources = extension.etat.hResource;
  // The framework owns and removes it.
  new CDynLinkLibrary(extension.etat);
}

void detacher() {
  if (!extension.initialisee) return;
  AfxTermExtensionModule(extension.etat);
  extension.initialisee = false;
}

}  // namespace

// The platform calls it with its module and the reason.
extern "C" int DllMain(void* instance, unsigned long raison, void*) {
  if (raison == kAttacher) attacher(instance);
  else if (raison == kDetacher) detacher();
  return 1;
}
