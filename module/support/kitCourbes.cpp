// Ends of curves, and conversions between the host's classes.
// Old polylines are read by their vertices, in their order.
#include "module/support/kitCourbes.h"

#include <utility>

namespace plv {

namespace {

// Calls visiter(sommet) for each vertex; one that doesn't open is told by a null pointer.
template <class VISITE>
void parcourirSommets(const AcDb2dPolyline& poly2d, VISITE visiter) {
  const std::unique_ptr<AcDbObjectIterator> sommets(poly2d.vertexIterator());
  for (; sommets && !sommets->done(); sommets->step()) {
    AcDb2dVertex* sommet = nullptr;
    const bool ouvert = poly2d.openVertex(sommet, sommets->objectId(), AcDb::kForRead) == Acad::eOk;
    visiter(ouvert ? sommet : nullptr);
    if (ouvert) sommet->close();
  }
}

void extremites2d(const AcDb2dPolyline& poly2d, AcGePoint2d& debut, AcGePoint2d& fin) {
  bool premier = true;
  std::pair<bool, AcGePoint2d> dernier;
  parcourirSommets(poly2d, [&](const AcDb2dVertex* sommet) {
    dernier = {sommet != nullptr, sommet ? AcGePoint2d(sommet->position().x, sommet->position().y) : AcGePoint2d()};
    if (premier && sommet) debut = dernier.second;
    premier = false;
  });
  if (dernier.first) fin = dernier.second;
}

using lectureParametre = Acad::ErrorStatus (AcDbCurve::*)(double&) const;

void pointAuBout(const AcDbCurve& courbe, lectureParametre lire, AcGePoint2d& point) {
  double parametre = 0;
  AcGePoint3d lu;
  if ((courbe.*lire)(parametre) == Acad::eOk && courbe.getPointAtParam(parametre, lu) == Acad::eOk)
    point = {lu.x, lu.y};
}

}  // namespace

void extremitesCourbe(const AcDbCurve& courbe, AcGePoint2d& gauche, AcGePoint2d& droite) {
  if (const auto* poly2d = AcDb2dPolyline::cast(&courbe)) {
    extremites2d(*poly2d, gauche, droite);
  } else {
    pointAuBout(courbe, &AcDbCurve::getStartParam, gauche);
    pointAuBout(courbe, &AcDbCurve::getEndParam, droite);
  }
  if (gauche.x > droite.x) std::swap(gauche, droite);
}

std::unique_ptr<AcDbPolyline> polyligneDe2d(AcDb2dPolyline& poly2d) {
  const AcDb::Poly2dType type = poly2d.polyType();
  if (type != AcDb::k2dSimplePoly && type != AcDb::k2dFitCurvePoly) return nullptr;
  auto resultat = std::make_unique<AcDbPolyline>();
  if (type == AcDb::k2dSimplePoly) {
    AcDbEntity* source = &poly2d;
    if (resultat->convertFrom(source, false) != Acad::eOk) return nullptr;
    return resultat;
  }
  parcourirSommets(poly2d, [&](const AcDb2dVertex* sommet) {
    if (!sommet || (sommet->vertexType() != AcDb::k2dVertex && sommet->vertexType() != AcDb::k2dCurveFitVertex)) return;
    const AcGePoint3d p = sommet->position();
    resultat->addVertexAt(resultat->numVerts(), {p.x, p.y}, sommet->bulge(), -1.0, -1.0);
  });
  return resultat;
}

std::unique_ptr<AcDbSpline> splineUniforme(int degre, const AcGePoint3dArray& points) {
  const int n = points.length();
  AcGeDoubleArray noeuds, poids;
  for (int i = 0; i < degre; ++i) noeuds.append(0.0);
  for (int i = 0; i <= n - degre; ++i) noeuds.append(i);
  for (int i = 0; i < degre; ++i) noeuds.append(n - degre);
  for (int i = 0; i < n; ++i) poids.append(1.0);
  return std::make_unique<AcDbSpline>(degre, false, false, false, points, noeuds, poids);
}

std::unique_ptr<AcDbSpline> splineDe2d(const AcDb2dPolyline& poly2d) {
  const AcDb::Poly2dType type = poly2d.polyType();
  if (type != AcDb::k2dQuadSplinePoly && type != AcDb::k2dCubicSplinePoly) return nullptr;
  const int degre = type == AcDb::k2dQuadSplinePoly ? 2 : 3;
  AcGePoint3dArray points;
  parcourirSommets(poly2d, [&](const AcDb2dVertex* sommet) {
    if (sommet && sommet->vertexType() == AcDb::k2dSplineCtlVertex) points.append(sommet->position());
  });
  const int n = points.length();
  if (n < 2) return nullptr;
  if (n <= degre) {
    // Too few for the degree: the point before the last one is repeated.
    const AcGePoint3d dernier = points.last(), avant = points[n - 2];
    points.removeLast();
    for (int i = 0; i < degre - n + 1; ++i) points.append(avant);
    points.append(dernier);
  }
  return splineUniforme(degre, points);
}

std::unique_ptr<AcGeNurbCurve3d> nurbsDeSpline(const AcDbSpline& spline) {
  int degre = 0;
  bool rationnelle = false, fermee = false, periodique = false;
  AcGePoint3dArray points;
  AcGeDoubleArray noeuds, poids;
  double tolerancePoints = 0, toleranceNoeuds = 0;
  if (spline.isNull() || spline.getNurbsData(degre, rationnelle, fermee, periodique, points, noeuds, poids,
                                             tolerancePoints, toleranceNoeuds) != Acad::eOk)
    return nullptr;
  const AcGeKnotVector suite(noeuds);
  if (poids.length() == points.length()) return std::make_unique<AcGeNurbCurve3d>(degre, suite, points, poids);
  return std::make_unique<AcGeNurbCurve3d>(degre, suite, points);
}

std::unique_ptr<AcDbSpline> splineDeNurbs(const AcGeNurbCurve3d& nurbs) {
  int degre = 0;
  bool rationnelle = false, periodique = false;
  AcGeKnotVector suite;
  AcGePoint3dArray points;
  AcGeDoubleArray noeuds, poids;
  nurbs.getDefinitionData(degre, rationnelle, periodique, suite, points, poids);
  for (int i = 0; i < suite.length(); ++i) noeuds.append(suite[i]);
  auto spline = std::make_unique<AcDbSpline>(degre, rationnelle, false, periodique, points, noeuds, poids);
  if (spline->isNull()) return nullptr;
  return spline;
}

}  // namespace plv
