// Lines of straight runs as lists of vertices: studies get a ground and a project line in this form.
#pragma once
#include <vector>

#include "hote/adesk.h"
#include "module/profil/profilLong.h"

namespace etu {

struct sommet {
  plv::distanceProfil distance;
  plv::altitudeVraie altitude;
};
using listeSommets = std::vector<sommet>;

listeSommets terrainDe(const plv::profilLong& profil);

// Reads a list of two numbers that begins at this node of the arguments, and moves the node after it. False for anything else.
bool lirePaire(const resbuf*& noeud, double& premier, double& second);

// Reads the vertices of a list of lists (station altitude) that begins at this node of the arguments; stations become
// distances of the profile. False for any other argument, and for numbers that aren't finite.
bool lireSommets(const resbuf* liste, const plv::profilLong& profil, listeSommets& sommets);

}  // namespace etu
