// The one set of settings.
// entree.cpp builds it, in its place among the objects of the process.
#include "module/support/reglages.h"

namespace plv {

reglages& reglagesModule() {
  static reglages tous;
  return tous;
}

}  // namespace plv
