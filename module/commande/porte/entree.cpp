// The module's one entry, and the objects that live as long as the process.
// The components that menus need live from the first message to the last one.
#include "module/commande/porte/entree.h"

#include "hote/plateforme.h"
#include "module/commande/porte/tableFonctions.h"
#include "module/matrices/gestionMatrices.h"
#include "module/support/menus/menus.h"
#include "module/support/reglages/reglages.h"

namespace plv {

namespace {

// Built before the first message, in this order. None of them touches the drawing.
const struct objetsDuProcessus {
  objetsDuProcessus() {
    groupeMenus();
    collectionMatrices();
    reglagesModule();
    amorcerMenusDynamiques();
  }
} objets;

void accueillir(void* application) {
  acrxUnlockApplication(application);
  acrxRegisterAppMDIAware(application);
  CoInitialize(nullptr);
}

}  // namespace

}  // namespace plv

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
  switch (msg) {
    case AcRx::kInitAppMsg: plv::accueillir(pkt); break;
    case AcRx::kUnloadAppMsg: CoUninitialize(); break;
    case AcRx::kLoadDwgMsg: plv::publierFonctions(); break;
    case AcRx::kUnloadDwgMsg: plv::retirerFonctions(); break;
    case AcRx::kInvkSubrMsg: plv::appelerFonction(); break;
    default: break;
  }
  return AcRx::kRetOK;
}
