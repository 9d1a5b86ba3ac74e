// A network along a profile: manholes by station, pipes between neighbours, what crosses. Plain values in metres; stations are those of
// the profile. Altitudes that aren't given come from the ground and from the line.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "etudes/reseaux/rangees.h"

namespace etu {

// Inner and outer diameter. Where the wall isn't known both are the same.
struct diametres {
  double interieur = 0, exterieur = 0;
  double paroi() const { return (exterieur - interieur) / 2; }
  bool connu() const { return exterieur > interieur; }
};

// A point of the network; without a diameter it is no manhole, only a place where pipes meet.
struct regard {
  std::wstring nom;
  double station = 0;
  std::wstring type;
  diametres diametre;
  std::optional<double> tampon, arrivee, depart,
      fond;             // cover; inverts of the pipe to the left and to the right; bottom
  std::wstring profil;  // number of the profile that it belongs to; empty for this one
};

// From the manhole with this index to the next one.
struct tuyau {
  std::size_t de = 0;
  diametres diametre;
  std::wstring materiau, classe;
  std::optional<double> lit;  // thickness of its bedding; that of the trench type where it isn't given
  double strickler = 0;       // 0: that of its material
};

// A pipe or cable that crosses the profile, its centre at this altitude.
struct croisement {
  std::wstring nom;
  double station = 0, altitude = 0, diametre = 0;
  double angle = 90;  // degrees between it and the profile
};

// What a network is held to. A limit that isn't given has its usual values; one without values isn't looked at.
enum limite {
  kLimitePente,
  kLimiteCouverture,
  kLimiteChute,
  kLimiteEspacement,
  kLimiteVitesse,
  kLimiteCroisement,
  kNombreLimites
};
struct bornes {
  std::optional<double> moindre, plusGrande;
};

struct reseau {
  std::vector<regard> regards;  // by station
  std::vector<tuyau> tuyaux;    // by their manholes; at most one between two neighbours
  std::vector<croisement> croisements;
  std::array<std::optional<bornes>, kNombreLimites> limites;
};

// Reads rows; throws `refus`. The names of limits and what they mean stand in lecture.cpp.
reseau lireReseau(const rangees& textes);
// The rows from which the same network is read, with a heading for each kind.
rangees rangeesDe(const reseau& r);

const wchar_t* nomLimite(limite l);
// Percent and metres as rows have them.
double uniteLimite(limite l);

// A diameter as users write it: millimetres, "300", "300/335" inner and outer, "300+17" inner and wall.
std::wstring enTexte(const diametres& d);

}  // namespace etu
