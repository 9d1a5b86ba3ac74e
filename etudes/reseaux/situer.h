// The altitudes of a network: covers from the ground, inverts from the line, wherever rows give none.
#pragma once
#include <vector>

#include "etudes/reseaux/lignes.h"
#include "etudes/reseaux/reseau.h"

namespace etu {

struct regardPose {
  double station, terrain, tampon, fond;
  std::optional<double> arrivee, depart;  // inverts of the pipes to the left and to the right, where there is one
};

struct tuyauPose {
  double debut, fin;    // stations
  double zDebut, zFin;  // inverts
  double longueur() const { return fin - debut; }
  double pente() const { return (zFin - zDebut) / longueur(); }  // rise per metre to the right
  double enPente() const;                                        // length along its slope
};

// Pipes that follow each other without a gap: the first one, and the one after the last.
struct troncon {
  std::size_t premier, apres;
};

struct reseauPose {
  reseau r;
  std::vector<regardPose> regards;  // as r.regards
  std::vector<tuyauPose> tuyaux;    // as r.tuyaux
  std::vector<troncon> troncons;

  std::wstring nomTuyau(std::size_t i) const;
  // Whether water flows to the right, from the first manhole of a run to its last one.
  bool versLaDroite(const troncon& t) const;
};

// Throws `refus` for manholes beside the ground, inverts that nothing gives, a bottom above its pipes, a cover below them.
reseauPose situer(reseau r, const ligneDroites& terrain, const ligneDroites& ligne);

}  // namespace etu
