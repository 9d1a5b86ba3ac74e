// The identity of a new row.
// The counter starts from the clock, so that rows of different sessions on one drawing differ.
#include "module/matrices/ligneMatrice.h"

#include <ctime>

namespace plv {

namespace {

constexpr Adesk::UInt32 kNonAmorce = 0xFFFFFFFF;

Adesk::UInt32 prochainIdLigne() {
  static Adesk::UInt32 compteurIdLignes = kNonAmorce;
  if (compteurIdLignes == kNonAmorce) compteurIdLignes = static_cast<Adesk::UInt32>(std::time(nullptr));
  const Adesk::UInt32 pris = compteurIdLignes++;
  return pris == kNonAmorce ? compteurIdLignes++ : pris;
}

}  // namespace

ligneMatrice::ligneMatrice() : idLigne(prochainIdLigne()) {}

}  // namespace plv
