// The numbers of a profile that look alike, each with a type of its own, so that none can stand where another is meant.
// They hold a double and cost nothing. Where a loop works on one kind of number, a double with a telling name does.
#pragma once
#include <compare>

namespace plv {

template <class MARQUE>
struct grandeur {
  double valeur = 0;
  constexpr grandeur() = default;
  constexpr explicit grandeur(double v) : valeur(v) {}
  friend constexpr auto operator<=>(const grandeur&, const grandeur&) = default;
  // How far a lies beyond b: a length or a height, which is of no kind.
  friend constexpr double operator-(const grandeur& a, const grandeur& b) { return a.valeur - b.valeur; }
};

// Along the profile, metres: the distance is counted from the profile's origin, the station also has the distance
// cumulated there.
using distanceProfil = grandeur<struct marqueDistance>;
using stationPk = grandeur<struct marqueStation>;
// In the drawing, drawing units of the world.
using xDessin = grandeur<struct marqueX>;
using yDessin = grandeur<struct marqueY>;
// Metres, with the vertical scale taken out.
using altitudeVraie = grandeur<struct marqueAltitude>;
// Metres below the ground; above it, negative.
using profondeurFouille = grandeur<struct marqueProfondeur>;

constexpr profondeurFouille profondeurSous(altitudeVraie terrain, altitudeVraie projet) {
  return profondeurFouille(terrain - projet);
}

}  // namespace plv
