// A line between manholes, raised as far as what is asked lets it: no line is dearer for being less deep, so that it then stands on the very
// limits that levels only come near to.
#pragma once
#include <vector>

#include "etudes/cout/chemin.h"

namespace etu {

std::vector<regardTrouve> relevee(const etude& e, const tarif& t, std::vector<regardTrouve> regards);

}  // namespace etu
