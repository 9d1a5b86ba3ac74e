// Curves of a profile as straight pieces in altitude, and what they give at the abscissas of the natural ground.
// X is the drawing's, Y an altitude.
#pragma once
#include "module/profil/profilLong.h"

namespace plv {

struct segmentsAltitude {
  AcGePoint2dArray debuts, fins;  // the i-th start and the i-th end make one piece
};

// The reference plane of the section at a drawing abscissa, 0 for a profile without sections.
double altitudeReference(const profilLong& profil, double x);
// The pieces of a line, a polyline of either kind or a spline, by its exact class, in the drawing's coordinates. False
// for any other class.
bool segmentsDessin(const AcDbCurve& courbe, segmentsAltitude& segments);
// The Y of all points become altitudes over the reference plane; then each piece starts at its lesser X, and all are
// sorted by it.
void mettreEnAltitude(segmentsAltitude& segments, const profilLong& profil, double reference);

// Calls visiter(x, altitude) for each piece in order, and for each ground abscissa in order that the piece covers.
// Pieces without width give nothing.
template <class VISITE>
void visiterTn(const segmentsAltitude& segments, const profilLong& profil, VISITE visiter);

}  // namespace plv

#include <algorithm>
#include <cmath>

namespace plv {

inline constexpr double kBordSegment = 1e-8;  // an abscissa this near to an end is covered
inline constexpr double kSegmentSansLargeur = 1e-10;

template <class VISITE>
void visiterTn(const segmentsAltitude& segments, const profilLong& profil, VISITE visiter) {
  const std::vector<double>& tn = profil.distTn;
  const bool croissant = std::is_sorted(tn.begin(), tn.end());
  for (int i = 0; i < segments.debuts.length(); ++i) {
    const AcGePoint2d a = segments.debuts[i], b = segments.fins[i];
    const double largeur = b.x - a.x;
    if (!(std::abs(largeur) >= kSegmentSansLargeur)) continue;
    // A hair before the first one that can be covered: the test below decides.
    const double premier = a.x - profil.position.x - 1e-6 * (1 + std::abs(a.x));
    auto d = croissant ? std::lower_bound(tn.begin(), tn.end(), premier) : tn.begin();
    for (; d != tn.end(); ++d) {
      const double x = *d + profil.position.x;
      if (x > b.x + kBordSegment) {
        if (croissant) break;
        continue;
      }
      if (x >= a.x - kBordSegment) visiter(x, a.y + (x - a.x) / largeur * (b.y - a.y));
    }
  }
}

}  // namespace plv
