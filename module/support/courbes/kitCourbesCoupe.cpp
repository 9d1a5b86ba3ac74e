// Cutting of a curve at verticals.
// The pieces stand in the order of the curve, whatever the order of the verticals: they are taken from the middle
// outwards, so that each cut halves what it copies and a long curve is not copied once for each vertical.
#include <algorithm>
#include <cmath>

#include "hote/adaptation.h"
#include "module/support/courbes/kitCourbes.h"

namespace plv {

namespace {

struct enCours {
  pieceCourbe piece;
  AcDbExtents etendue;  // empty when it isn't known
};

enCours commencer(AcDbCurve* courbe, bool source) {
  enCours debut{pieceCourbe(courbe, libererPiece{source}), {}};
  courbe->getGeomExtents(debut.etendue);
  return debut;
}

bool loinDe(const enCours& e, double x) {
  const double marge = kToleranceJonction;
  return !adaptation::isEmpty(e.etendue) && (x < e.etendue.minPoint().x - marge || x > e.etendue.maxPoint().x + marge);
}

void intersections(const AcDbXline& verticale, const AcDbCurve& courbe, AcGePoint3dArray& points) {
  verticale.intersectWith(&courbe, AcDb::kOnBothOperands, points);
  if (points.isEmpty()) courbe.intersectWith(&verticale, AcDb::kOnBothOperands, points);
}

// The new curves of one piece; none when it stays whole.
void couperPiece(const AcDbXline& verticale, const AcDbCurve& courbe, AcArray<AcDbCurve*>& nouvelles) {
  AcGePoint3dArray points;
  intersections(verticale, courbe, points);
  AcGeDoubleArray parametres;
  double debut = 0, fin = 0, parametre = 0;
  courbe.getStartParam(debut);
  courbe.getEndParam(fin);
  parametres.append(debut);
  for (const AcGePoint3d& point : points)
    if (courbe.getParamAtPoint(point, parametre) == Acad::eOk) parametres.append(parametre);
  if (parametres.length() == 1) return;
  parametres.append(fin);
  courbe.getSplitCurves(parametres, nouvelles);
  if (nouvelles.isEmpty()) courbe.getSplitCurves(points, nouvelles);
}

void couperToutes(double x, std::vector<enCours>& presentes) {
  AcDbXline verticale;
  verticale.setBasePoint({x, 0.0, 0.0});
  verticale.setUnitDir({0.0, 1.0, 0.0});
  std::vector<enCours> suivantes;
  suivantes.reserve(presentes.size() + 1);
  for (enCours& presente : presentes) {
    AcArray<AcDbCurve*> nouvelles;
    if (!loinDe(presente, x)) couperPiece(verticale, *presente.piece, nouvelles);
    if (nouvelles.isEmpty()) suivantes.push_back(std::move(presente));
    for (AcDbCurve* nouvelle : nouvelles) suivantes.push_back(commencer(nouvelle, false));
  }
  presentes = std::move(suivantes);
}

void couperEntre(const std::vector<double>& listeX, std::size_t de, std::size_t a, std::vector<enCours>& presentes) {
  if (de >= a) return;
  const std::size_t milieu = (de + a) / 2;
  couperToutes(listeX[milieu], presentes);
  couperEntre(listeX, de, milieu, presentes);
  couperEntre(listeX, milieu + 1, a, presentes);
}

// An old polyline can't be cut as it is.
std::unique_ptr<AcDbCurve> convertie(AcDb2dPolyline& poly2d) {
  if (poly2d.polyType() == AcDb::k2dQuadSplinePoly || poly2d.polyType() == AcDb::k2dCubicSplinePoly)
    return splineDe2d(poly2d);
  return polyligneDe2d(poly2d);
}

}  // namespace

void couperCourbe(AcDbCurve& courbe, const std::vector<double>& listeX, piecesCourbe& pieces, bool& remplacer) {
  pieces.clear();
  remplacer = false;
  std::vector<enCours> presentes;
  if (auto* poly2d = AcDb2dPolyline::cast(&courbe)) {
    auto nouvelle = convertie(*poly2d);
    if (!nouvelle) return;
    remplacer = true;
    presentes.push_back(commencer(nouvelle.release(), false));
  } else {
    presentes.push_back(commencer(&courbe, true));
  }
  std::vector<double> ordonnees;
  std::copy_if(listeX.begin(), listeX.end(), std::back_inserter(ordonnees), [](double x) { return std::isfinite(x); });
  std::sort(ordonnees.begin(), ordonnees.end());
  couperEntre(ordonnees, 0, ordonnees.size(), presentes);
  for (enCours& presente : presentes) pieces.push_back(std::move(presente.piece));
}

}  // namespace plv
