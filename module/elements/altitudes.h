// Curves of a profile as straight pieces in altitude, and what they give at the abscissas of the natural ground.
// X is the drawing's, Y an altitude.
#pragma once
#include "module/profil/profilLong.h"

namespace plv {

struct segmentsAltitude {
  AcGePoint2dArray debuts, fins;  // the i-th start and the i-th end make one piece
};

struct pointAltitude {
  xDessin x;
  altitudeVraie z;
};

// The reference plane of the section at a drawing abscissa, 0 for a profile without sections.
altitudeVraie altitudeReference(const profilLong& profil, xDessin x);
// The pieces of a line, a polyline of either kind or a spline, by its exact class, in the drawing's coordinates. False
// for any other class.
bool segmentsDessin(const AcDbCurve& courbe, segmentsAltitude& segments);
// The Y of all points become altitudes over the reference plane; then each piece starts at its lesser X, and all are
// sorted by it.
void mettreEnAltitude(segmentsAltitude& segments, const profilLong& profil, altitudeVraie reference);
// For each piece in order, a point at each ground abscissa in order that the piece covers. Pieces without width give
// nothing.
std::vector<pointAltitude> pointsAuTn(const segmentsAltitude& segments, const profilLong& profil);

}  // namespace plv
