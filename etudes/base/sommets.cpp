// A pair of numbers reaches a function as a plane point when one of them at least is a real, else as a list of two integers.
#include "etudes/base/sommets.h"

#include <cmath>

#include "module/commande/arguments/argsLisp.h"

namespace etu {

bool lirePaire(const resbuf*& noeud, double& premier, double& second) {
  if (noeud->restype == RTPOINT) {
    const AcGePoint3d point = plv::valeurPoint(noeud);
    premier = point.x;
    second = point.y;
    noeud = noeud->rbnext;
    return true;
  }
  const resbuf* a = noeud->restype == RTLB ? noeud->rbnext : nullptr;
  const resbuf* b = plv::estNombre(a) ? a->rbnext : nullptr;
  const resbuf* fin = plv::estNombre(b) ? b->rbnext : nullptr;
  if (!fin || fin->restype != RTLE) return false;
  premier = plv::valeurReelle(a);
  second = plv::valeurReelle(b);
  noeud = fin->rbnext;
  return true;
}

listeSommets terrainDe(const plv::profilLong& profil) {
  listeSommets terrain;
  for (std::size_t i = 0; i < profil.distTn.size(); ++i)
    terrain.push_back({plv::distanceProfil(profil.distTn[i]), plv::altitudeVraie(profil.altTn[i])});
  return terrain;
}

bool lireSommets(const resbuf* liste, const plv::profilLong& profil, listeSommets& sommets) {
  if (!liste || liste->restype != RTLB) return false;
  for (const resbuf* noeud = liste->rbnext; noeud;) {
    if (noeud->restype == RTLE) return true;
    double station = 0, altitude = 0;
    if (!lirePaire(noeud, station, altitude) || !std::isfinite(station) || !std::isfinite(altitude)) return false;
    sommets.push_back({profil.distanceDe(plv::stationPk(station)), plv::altitudeVraie(altitude)});
  }
  return false;
}

}  // namespace etu
