#include "etudes/base/arret.h"

#include "hote/aced.h"

namespace etu {

void demanderArret() {
  if (acedUsrBrk() != 0) throw arret();
}

}  // namespace etu
