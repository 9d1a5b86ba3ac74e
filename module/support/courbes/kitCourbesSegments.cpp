// Sampling of splines, and curves as straight pieces.
// Each class is read in its own way, by its exact class.
#include <algorithm>
#include <numeric>

#include "module/support/courbes/kitCourbes.h"

namespace plv {

namespace {

constexpr double kCordeSpline = 0.001;  // of every sampling
constexpr double kPasSpline = 0.0001;   // what callers ask for, to no effect

void relier(const AcGePoint2dArray& points, AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  for (int i = 0; i + 1 < points.length(); ++i) {
    debuts.append(points[i]);
    fins.append(points[i + 1]);
  }
}

void segmentsPolyligne(const AcDbPolyline& polyligne, AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  AcGePoint2dArray points;
  for (unsigned int i = 0; i < polyligne.numVerts(); ++i) {
    AcGePoint2d point;
    polyligne.getPointAt(i, point);
    points.append(point);
  }
  relier(points, debuts, fins);
}

void segmentsSpline(const AcDbSpline& spline, AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  AcGePoint2dArray points;
  echantillonnerSpline(spline, points, kPasSpline);
  relier(points, debuts, fins);
}

void segmentsPoly2d(const AcDb2dPolyline& poly2d, AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  if (const auto spline = splineDe2d(poly2d)) return segmentsSpline(*spline, debuts, fins);
  AcGePoint2dArray points;
  for (const sommet2d& s : sommetsDe(poly2d))
    if (s.ouvert && s.type != AcDb::k2dSplineCtlVertex) points.append(AcGePoint2d(s.position.x, s.position.y));
  relier(points, debuts, fins);
}

void segmentsAutres(const AcDbCurve& courbe, AcGePoint2dArray& debuts, AcGePoint2dArray& fins, double tolerance) {
  AcDbSpline* creee = nullptr;
  if (courbe.getSpline(creee) != Acad::eOk) return;
  const std::unique_ptr<AcDbSpline> spline(creee);
  segmentsCourbe(*spline, debuts, fins, tolerance);
  ordonnerSegments(debuts, fins);
  trierSegments(debuts, fins);
}

}  // namespace

void echantillonnerSpline(const AcDbSpline& spline, AcGePoint2dArray& points, double) {
  const auto nurbs = nurbsDeSpline(spline);
  if (!nurbs) return;
  AcGePoint3dArray echantillons;
  AcGeDoubleArray parametres;
  nurbs->getSamplePoints(nurbs->startParam(), nurbs->endParam(), kCordeSpline, echantillons, parametres);
  AcGePlane plan;
  if (!nurbs->isPlanar(plan)) return;
  const AcGePoint3d origine = plan.pointOnPlane();
  for (const AcGePoint3d& echantillon : echantillons) {
    const AcGePoint2d p = echantillon.convert2d(plan);
    points.append(AcGePoint2d(p.x + origine.x, p.y + origine.y));
  }
}

void segmentsCourbe(const AcDbCurve& courbe, AcGePoint2dArray& debuts, AcGePoint2dArray& fins, double tolerance) {
  const AcRxClass* classe = courbe.isA();
  if (classe == AcDbPolyline::desc()) {
    segmentsPolyligne(static_cast<const AcDbPolyline&>(courbe), debuts, fins);
  } else if (classe == AcDb2dPolyline::desc()) {
    segmentsPoly2d(static_cast<const AcDb2dPolyline&>(courbe), debuts, fins);
  } else if (classe == AcDbSpline::desc()) {
    segmentsSpline(static_cast<const AcDbSpline&>(courbe), debuts, fins);
  } else if (classe == AcDbLine::desc()) {
    const auto& ligne = static_cast<const AcDbLine&>(courbe);
    debuts.append(AcGePoint2d(ligne.startPoint().x, ligne.startPoint().y));
    fins.append(AcGePoint2d(ligne.endPoint().x, ligne.endPoint().y));
  } else {
    segmentsAutres(courbe, debuts, fins, tolerance);
  }
}

void ordonnerSegments(AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  for (int i = 0; i < debuts.length(); ++i)
    if (debuts[i].x > fins[i].x) std::swap(debuts[i], fins[i]);
}

// Each place is compared with each later one and exchanged when strictly greater. Kept as it is: the order that this
// leaves among equal X shows in results; without equal X any sort gives the same, and a quick one serves.
void trierSegments(AcGePoint2dArray& debuts, AcGePoint2dArray& fins) {
  const int n = debuts.length();
  const auto avant = [&](int a, int b) { return debuts[a].x < debuts[b].x; };
  std::vector<int> ordre(static_cast<std::size_t>(n));
  std::iota(ordre.begin(), ordre.end(), 0);
  std::sort(ordre.begin(), ordre.end(), avant);
  if (std::adjacent_find(ordre.begin(), ordre.end(), [&](int a, int b) { return !avant(a, b); }) == ordre.end()) {
    const AcGePoint2dArray d = debuts, f = fins;
    for (int i = 0; i < n; ++i)
      debuts[i] = d[ordre[static_cast<std::size_t>(i)]], fins[i] = f[ordre[static_cast<std::size_t>(i)]];
    return;
  }
  for (int i = 0; i < n; ++i)
    for (int j = i + 1; j < n; ++j)
      if (debuts[i].x > debuts[j].x) {
        std::swap(debuts[i], debuts[j]);
        std::swap(fins[i], fins[j]);
      }
}

}  // namespace plv
