// The headless program.
#include "atelier/console/console.h"
#include "atelier/plugin/published.h"
#include "module/commande/entree.h"

namespace {

int moduleEntry(int message, void* applicationId) {
  return acrxEntryPoint(static_cast<AcRx::AppMsgCode>(message), applicationId);
}

}  // namespace

int main(int argc, char** argv) {
  atelier::registerApplication(moduleEntry);
  return atelier::console::run(argc, argv);
}
