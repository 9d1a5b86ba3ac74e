// The plug-ins' entry points; they get messages in this order.
#include "programs/applications.h"

#include "atelier/plugin/published.h"
#include "etudes/porte/entree.h"
#include "module/commande/porte/entree.h"

namespace kavel {

void registerApplications() {
  atelier::registerApplication(
      [](int message, void* id) -> int { return acrxEntryPoint(static_cast<AcRx::AppMsgCode>(message), id); });
  atelier::registerApplication(
      [](int message, void* id) -> int { return etu::entree(static_cast<AcRx::AppMsgCode>(message), id); });
}

}  // namespace kavel
