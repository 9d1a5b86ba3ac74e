// The order in which reports show the lines of a profile.
// The sort compares through guarded look-ups: what has no first section can't be placed.
#include "module/metres/TranconProfilEnlong.h"

#include <algorithm>
#include <stdexcept>

namespace plv {

namespace {

const LineSegArrayData& premierProjet(const ligneTroncons& ligne) {
  if (ligne.troncons.empty()) throw std::out_of_range("invalid vector<T> subscript");
  return *ligne.troncons.front()->projet;
}

bool avant(const ligneTroncons& a, const ligneTroncons& b) {
  const LineSegArrayData &projetA = premierProjet(a), &projetB = premierProjet(b);
  return !projetA.IsEmpty() && !projetB.IsEmpty() && projetA.debut() < projetB.debut();
}

}  // namespace

void ordonnerLignes(InfoProfilEnLong& profil) { std::stable_sort(profil.lignes.begin(), profil.lignes.end(), avant); }

}  // namespace plv
