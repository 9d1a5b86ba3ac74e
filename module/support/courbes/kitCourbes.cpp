// Ends of curves, conversions between the host's classes, and the owner of an open curve.
// Old polylines are read by their vertices, in their order.
#include "module/support/courbes/kitCourbes.h"

#include <utility>

namespace plv {

namespace {

void extremites2d(const AcDb2dPolyline& poly2d, AcGePoint2d& debut, AcGePoint2d& fin) {
  const std::vector<sommet2d> sommets = sommetsDe(poly2d);
  if (sommets.empty()) return;
  const auto versPlan = [](const sommet2d& sommet) { return AcGePoint2d(sommet.position.x, sommet.position.y); };
  if (sommets.front().ouvert) debut = versPlan(sommets.front());
  if (sommets.back().ouvert) fin = versPlan(sommets.back());
}

using lectureParametre = Acad::ErrorStatus (AcDbCurve::*)(double&) const;

void pointAuBout(const AcDbCurve& courbe, lectureParametre lire, AcGePoint2d& point) {
  double parametre = 0;
  AcGePoint3d lu;
  if ((courbe.*lire)(parametre) == Acad::eOk && courbe.getPointAtParam(parametre, lu) == Acad::eOk)
    point = {lu.x, lu.y};
}

}  // namespace

std::vector<sommet2d> sommetsDe(const AcDb2dPolyline& poly2d) {
  std::vector<sommet2d> lus;
  const std::unique_ptr<AcDbObjectIterator> sommets(poly2d.vertexIterator());
  for (; sommets && !sommets->done(); sommets->step()) {
    AcDb2dVertex* sommet = nullptr;
    if (poly2d.openVertex(sommet, sommets->objectId(), AcDb::kForRead) != Acad::eOk) {
      lus.emplace_back();
      continue;
    }
    lus.push_back({true, sommet->position(), sommet->bulge(), sommet->vertexType()});
    sommet->close();
  }
  return lus;
}

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
  for (const sommet2d& s : sommetsDe(poly2d))
    if (s.ouvert && (s.type == AcDb::k2dVertex || s.type == AcDb::k2dCurveFitVertex))
      resultat->addVertexAt(resultat->numVerts(), {s.position.x, s.position.y}, s.courbure, -1.0, -1.0);
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
  for (const sommet2d& s : sommetsDe(poly2d))
    if (s.ouvert && s.type == AcDb::k2dSplineCtlVertex) points.append(s.position);
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

courbeOuverte::courbeOuverte(AcDbObjectId id) {
  if (acdbOpenObject(m_courbe, id, AcDb::kForWrite) != Acad::eOk) m_courbe = nullptr;
}

courbeOuverte& courbeOuverte::operator=(courbeOuverte&& autre) noexcept {
  if (this != &autre) {
    fermer();
    m_courbe = std::exchange(autre.m_courbe, nullptr);
  }
  return *this;
}

bool courbeOuverte::remplacer(std::unique_ptr<AcDbCurve>& nouvelle) {
  if (m_courbe->handOverTo(nouvelle.get(), true, true) != Acad::eObjectToBeDeleted) return false;
  delete m_courbe;
  m_courbe = nouvelle.release();
  return true;
}

void courbeOuverte::effacer() {
  if (m_courbe) m_courbe->erase();
  fermer();
}

void courbeOuverte::fermer() {
  if (m_courbe) m_courbe->close();
  m_courbe = nullptr;
}

}  // namespace plv
