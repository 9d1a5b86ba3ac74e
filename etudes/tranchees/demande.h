// A network with its trenches as the functions of this room get it: profile, rows and line of the network, rows of the trench types, lines
// of the grounds that these name.
#pragma once
#include "etudes/reseaux/arguments.h"
#include "etudes/tranchees/decoupe.h"

namespace etu {

struct demandeTranchees {
  reseauDuProfil reseau;
  reglesTranchees regles;
  solsTranchees sols;
};
// False for other arguments; throws `refus`. The grounds come in the order of nomsDesSols, nil standing for the profile's own.
bool lireDemande(const resbuf*& noeud, demandeTranchees& d);

// The ground that is dug from, then the further layers.
std::vector<std::wstring> nomsDesSols(const reglesTranchees& regles);

}  // namespace etu
