// pl_curvelength, pl_areacalc and pl_fprmprb: measures and a parabola, for the front-end.
// None of them changes the drawing.
#include <cmath>
#include <memory>

#include "hote/dbents.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/profil/fonctionsProfil.h"

namespace plv {

namespace {

// Takes the vertical scale out of the spline: ordinates shrink towards that of the first control point.
void aplatir(AcDbSpline& spline, double facteur) {
  AcGePoint3d premier, point;
  spline.getControlPointAt(0, premier);
  for (int i = 1; i < spline.numControlPoints(); ++i) {
    spline.getControlPointAt(i, point);
    point.y = (point.y - premier.y) / facteur + premier.y;
    spline.setControlPointAt(i, point);
  }
}

bool longueur(const AcDbCurve& courbe, double& mesure) {
  double debut = 0, fin = 0, auDebut = 0, aLaFin = 0;
  if (courbe.getStartParam(debut) != Acad::eOk || courbe.getEndParam(fin) != Acad::eOk ||
      courbe.getDistAtParam(debut, auDebut) != Acad::eOk || courbe.getDistAtParam(fin, aLaFin) != Acad::eOk)
    return false;
  mesure = aLaFin - auDebut;
  return true;
}

bool aire(AcDbObjectId id, double& mesure) {
  AcDbEntityPointer entite(id);
  if (entite.openStatus() != Acad::eOk) return false;
  if (const auto* courbe = AcDbCurve::cast(entite)) return courbe->getArea(mesure) == Acad::eOk;
  const auto* region = AcDbRegion::cast(entite);
  return region && region->getArea(mesure) == Acad::eOk;
}

// An entity name and a factor above 0.
bool lireMesure(const ArgsLisp& args, AcDbObjectId& id, double& facteur) {
  if (!conforme(args, "NR")) return false;
  id = valeurId(args.nieme(0));
  facteur = valeurReelle(args.nieme(1));
  return facteur > 0.0;
}

}  // namespace

void pl_curvelength() {
  ArgsLisp args;
  commencerAppel(args);
  AcDbObjectId id;
  double facteur = 0, mesure = 0;
  if (!lireMesure(args, id, facteur)) return;
  std::unique_ptr<AcDbSpline> copie;
  {
    AcDbObjectPointer<AcDbSpline> spline(id);
    if (spline.openStatus() != Acad::eOk) return;
    copie.reset(AcDbSpline::cast(spline->clone()));
  }
  if (!copie) return;
  aplatir(*copie, facteur);
  if (longueur(*copie, mesure)) acedRetReal(mesure);
}

void pl_areacalc() {
  ArgsLisp args;
  commencerAppel(args);
  AcDbObjectId id;
  double facteur = 0, mesure = 0;
  if (lireMesure(args, id, facteur) && aire(id, mesure)) acedRetReal(std::abs(mesure / facteur));
}

// y = a x2 + b x + c through three points: the system of the rows (x2, x, 1), inverted.
void pl_fprmprb() {
  ArgsLisp args;
  commencerAppel(args);
  if (args.nombre() != 3 || !conforme(args, "PPP")) return;
  AcGePoint3d points[3];
  for (int i = 0; i < 3; ++i) points[i] = valeurPoint(args.nieme(i));
  // From the mean of the abscissas: squares of coordinates in millions leave no digit to their differences.
  const double milieu = (points[0].x + points[1].x + points[2].x) / 3;
  AcGeMatrix3d systeme;
  for (int i = 0; i < 3; ++i) {
    const double x = points[i].x - milieu;
    systeme(i, 0) = x * x;
    systeme(i, 1) = x;
    systeme(i, 2) = 1.0;
  }
  if (systeme.isSingular()) return;
  const AcGeVector3d c = systeme.inverse() * AcGeVector3d(points[0].y, points[1].y, points[2].y);
  const ads_point resultat = {c.x, c.y - 2 * c.x * milieu, c.z - c.y * milieu + c.x * milieu * milieu};
  acedRetPoint(resultat);
}

}  // namespace plv
