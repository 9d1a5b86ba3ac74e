// Curves of a profile as straight pieces in altitude.
// The classes are told apart by identity: what derives from them is another class.
#include "module/elements/altitudes.h"

#include <algorithm>
#include <cmath>

#include "module/support/courbes/kitCourbes.h"

namespace plv {

namespace {

constexpr double kPasSpline = 0.0001;
constexpr double kBordSegment = 1e-8;  // an abscissa this near to an end is covered
constexpr double kSegmentSansLargeur = 1e-10;
// How far before a piece the search begins, in parts of the piece's abscissa; the exact test then decides.
constexpr double kMargeRecherche = 1e-6;

// Appends the points of one piece. With the ground in ascending order only those between its ends are looked at.
void ajouterPoints(const AcGePoint2d& a, const AcGePoint2d& b, const profilLong& profil, bool croissant,
                   std::vector<pointAltitude>& points) {
  const double largeur = b.x - a.x;
  if (!(std::abs(largeur) >= kSegmentSansLargeur)) return;
  const std::vector<double>& tn = profil.distTn;
  const double premier = a.x - profil.position.x - kMargeRecherche * (1 + std::abs(a.x));
  auto d = croissant ? std::lower_bound(tn.begin(), tn.end(), premier) : tn.begin();
  for (; d != tn.end(); ++d) {
    const double x = *d + profil.position.x;
    if (x > b.x + kBordSegment) {
      if (croissant) break;
      continue;
    }
    if (x >= a.x - kBordSegment) points.push_back({xDessin(x), altitudeVraie(a.y + (x - a.x) / largeur * (b.y - a.y))});
  }
}

}  // namespace

altitudeVraie altitudeReference(const profilLong& profil, xDessin x) {
  return profil.altitudeSection(profil.indexPc(x));
}

bool segmentsDessin(const AcDbCurve& courbe, segmentsAltitude& segments) {
  const AcRxClass* classe = courbe.isA();
  if (classe != AcDbLine::desc() && classe != AcDbPolyline::desc() && classe != AcDb2dPolyline::desc() &&
      classe != AcDbSpline::desc())
    return false;
  segmentsCourbe(courbe, segments.debuts, segments.fins, kPasSpline);
  return true;
}

void mettreEnAltitude(segmentsAltitude& segments, const profilLong& profil, altitudeVraie reference) {
  for (AcGePoint2dArray* points : {&segments.debuts, &segments.fins})
    for (AcGePoint2d& point : *points) point.y = profil.altitudeDeY(yDessin(point.y), reference).valeur;
  ordonnerSegments(segments.debuts, segments.fins);
  trierSegments(segments.debuts, segments.fins);
}

std::vector<pointAltitude> pointsAuTn(const segmentsAltitude& segments, const profilLong& profil) {
  const bool croissant = std::is_sorted(profil.distTn.begin(), profil.distTn.end());
  std::vector<pointAltitude> points;
  for (int i = 0; i < segments.debuts.length(); ++i)
    ajouterPoints(segments.debuts[i], segments.fins[i], profil, croissant, points);
  return points;
}

}  // namespace plv
