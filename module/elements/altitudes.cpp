// Curves of a profile as straight pieces in altitude.
// The classes are told apart by identity: what derives from them is another class.
#include "module/elements/altitudes.h"

#include "module/support/kitCourbes.h"

namespace plv {

namespace {

constexpr double kPasSpline = 0.0001;

}  // namespace

double altitudeReference(const profilLong& profil, double x) {
  const std::size_t section = profil.indexPc(x);
  return section < profil.altPc.size() ? profil.altPc[section] : 0.0;
}

bool segmentsDessin(const AcDbCurve& courbe, segmentsAltitude& segments) {
  const AcRxClass* classe = courbe.isA();
  if (classe != AcDbLine::desc() && classe != AcDbPolyline::desc() && classe != AcDb2dPolyline::desc() &&
      classe != AcDbSpline::desc())
    return false;
  segmentsCourbe(courbe, segments.debuts, segments.fins, kPasSpline);
  return true;
}

void mettreEnAltitude(segmentsAltitude& segments, const profilLong& profil, double reference) {
  for (AcGePoint2dArray* points : {&segments.debuts, &segments.fins})
    for (AcGePoint2d& point : *points) point.y = profil.altitudeDeY(point.y, reference);
  ordonnerSegments(segments.debuts, segments.fins);
  trierSegments(segments.debuts, segments.fins);
}

}  // namespace plv
