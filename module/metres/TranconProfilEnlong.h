// The quantities of a trench along a profile: depth sections (tronçons), the lines they come from, fixed elements.
// Everything here is the result of calculerMetres; nothing of it enters the drawing.
#pragma once
#include <string>
#include <vector>

#include "module/metres/LineSegArrayData.h"
#include "module/profil/profilLong.h"

namespace plv {

// A depth section: a run along the profile in which the depth stays in one class, with that part of both lines.
struct TranconProfilEnlong {
  poigneeSegments terrain{new LineSegArrayData}, projet{new LineSegArrayData};
  double surface = 0;  // between the two lines, square drawing units of true height

  // The ends, and the class number. An empty `projet` raises the invalid-argument failure.
  distanceProfil debut() const { return distanceProfil(projet->GetAt(0).x1); }
  distanceProfil fin() const { return distanceProfil(projet->dernier().x2); }
  Adesk::Int32 classe() const { return projet->GetAt(0).classe; }
};
using poigneeTroncon = boost::shared_ptr<TranconProfilEnlong>;

// The depth sections of one project line, in ascending distance.
struct ligneTroncons {
  static constexpr Adesk::Int32 kAucuneClasse = -999;
  std::vector<poigneeTroncon> troncons;
  Adesk::Int32 classeCourante = kAucuneClasse;  // of the last depth section
  altitudeVraie planComparaison;                // of the profile's section, from PC to PC, in which the line lies
};

struct valeurElement {
  Adesk::Int32 estNombre = 0;  // 1: nombre, 0: texte
  double nombre = 0;
  std::wstring texte;
  std::wstring libelle;
};

// One known block found on the profile.
struct elementFixeMesure {
  Adesk::Int32 id = 0;  // of its kind
  std::wstring libelle;
  std::vector<valeurElement> valeurs;
};

struct InfoProfilEnLong : profilLong {
  std::vector<ligneTroncons> lignes;  // one for each project line
  std::vector<elementFixeMesure> elements;
};
using poigneeProfil = boost::shared_ptr<InfoProfilEnLong>;

}  // namespace plv
