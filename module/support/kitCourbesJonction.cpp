// Joining of curves that touch at an end.
// The result is a new curve; the drawing keeps the identity of the first of the two.
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "module/support/kitCourbes.h"

namespace plv {

namespace {

constexpr double kAbsent = -1e36;       // coordinates of an end that isn't there
constexpr double kSeuilAbsent = -1e35;  // below: absent

AcGeTol toleranceFusion() {
  AcGeTol tolerance;
  tolerance.setEqualPoint(kToleranceJonction);
  tolerance.setEqualVector(0.0001);
  return tolerance;
}

// Which end of each curve stands at the joint.
struct jonction {
  bool debut1, debut2;
};

// By the first case that holds: end and start, start and start, start and end, end and end.
std::optional<jonction> trouverJonction(const AcDbCurve& courbe1, const AcDbCurve& courbe2) {
  AcGePoint3d debut1, fin1, debut2, fin2;
  if (courbe1.getStartPoint(debut1) != Acad::eOk || courbe1.getEndPoint(fin1) != Acad::eOk ||
      courbe2.getStartPoint(debut2) != Acad::eOk || courbe2.getEndPoint(fin2) != Acad::eOk)
    return std::nullopt;
  const AcGeTol tolerance = toleranceFusion();
  constexpr std::array<jonction, 4> kCas = {jonction{false, true}, {true, true}, {true, false}, {false, false}};
  for (const jonction& cas : kCas)
    if ((cas.debut1 ? debut1 : fin1).isEqualTo(cas.debut2 ? debut2 : fin2, tolerance)) return cas;
  return std::nullopt;
}

// Bulges and widths go with the vertex they are read at, also backwards: that is how drawings have been joined.
void copierSommets(const AcDbPolyline& source, bool aRebours, AcDbPolyline& cible) {
  const unsigned int n = source.numVerts();
  for (unsigned int k = 0; k < n; ++k) {
    const unsigned int i = aRebours ? n - 1 - k : k;
    AcGePoint2d point;
    double courbure = 0, largeurDebut = 0, largeurFin = 0;
    source.getPointAt(i, point);
    source.getBulgeAt(i, courbure);
    source.getWidthsAt(i, largeurDebut, largeurFin);
    cible.addVertexAt(cible.numVerts(), point, courbure, largeurDebut, largeurFin);
  }
}

// Every vertex of both is copied, so that the joint stands twice, as a segment without length.
std::unique_ptr<AcDbCurve> fusionnerPolylignes(const AcDbPolyline& a, const AcDbPolyline& b) {
  if (!a.normal().isEqualTo(b.normal(), toleranceFusion())) return nullptr;
  const auto cas = trouverJonction(a, b);
  if (!cas) return nullptr;
  auto resultat = std::make_unique<AcDbPolyline>(a.numVerts() + b.numVerts());
  resultat->setPropertiesFrom(&a);
  resultat->setNormal(a.normal());
  resultat->setElevation(a.elevation());
  copierSommets(a, cas->debut1, *resultat);
  copierSommets(b, !cas->debut2, *resultat);
  return resultat;
}

// The same result in place, for a polyline that a fusion has made: a list of many pieces would copy each vertex as many times
// as there are pieces behind it. False, with nothing changed, when the joint isn't at its end.
bool prolonger(AcDbPolyline& a, const AcDbPolyline& b) {
  if (!a.normal().isEqualTo(b.normal(), toleranceFusion())) return false;
  const auto cas = trouverJonction(a, b);
  if (!cas || cas->debut1) return false;
  copierSommets(b, !cas->debut2, a);
  return true;
}

std::unique_ptr<AcDbSpline> copieRetournee(const AcDbSpline& spline, bool retourner) {
  std::unique_ptr<AcDbSpline> copie(AcDbSpline::cast(spline.clone()));
  if (copie && retourner && copie->reverseCurve() != Acad::eOk) return nullptr;
  return copie;
}

// Two parabolic splines: their control polygons, with the crossing of their last and first inner legs as the joint.
std::unique_ptr<AcDbSpline> fusionnerPolygones(const AcDbSpline& a, const AcDbSpline& b) {
  const int n = a.numControlPoints();
  if (n < 3 || b.numControlPoints() < 3) return nullptr;
  const auto point = [](const AcDbSpline& spline, int i) {
    AcGePoint3d p;
    spline.getControlPointAt(i, p);
    return p;
  };
  const auto droite = [&](const AcDbSpline& spline, int i) {
    const AcGePoint3d p = point(spline, i), q = point(spline, i + 1);
    return AcGeLine2d({p.x, p.y}, {q.x, q.y});
  };
  AcGePoint2d croisement;
  if (!droite(a, n - 3).intersectWith(droite(b, 1), croisement)) return nullptr;
  AcGePoint3dArray polygone;
  for (int i = 0; i < n - 1; ++i) polygone.append(point(a, i));
  polygone.append(AcGePoint3d(croisement.x, croisement.y, point(a, n - 1).z));
  for (int i = 2; i < b.numControlPoints(); ++i) polygone.append(point(b, i));
  auto resultat = splineUniforme(2, polygone);
  if (resultat->isNull()) return nullptr;
  return resultat;
}

std::unique_ptr<AcDbCurve> fusionnerSplines(const AcDbSpline& a, const AcDbSpline& b) {
  const auto cas = trouverJonction(a, b);
  if (!cas) return nullptr;
  // The start of the first on the end of the second: the second comes first, both run as they are.
  const bool echanger = cas->debut1 && !cas->debut2;
  const auto premiere = copieRetournee(echanger ? b : a, !echanger && cas->debut1);
  const auto seconde = copieRetournee(echanger ? a : b, !echanger && !cas->debut2);
  if (!premiere || !seconde) return nullptr;
  std::unique_ptr<AcDbSpline> resultat;
  if (premiere->degree() == 2 && seconde->degree() == 2) {
    resultat = fusionnerPolygones(*premiere, *seconde);
  } else {
    const auto debut = nurbsDeSpline(*premiere), suite = nurbsDeSpline(*seconde);
    if (!debut || !suite) return nullptr;
    resultat = splineDeNurbs(debut->joinWith(*suite));
  }
  if (resultat) resultat->setPropertiesFrom(&a);
  return resultat;
}

// A curve of the list, open for write, and its two ends.
struct courbeOuverte {
  AcDbCurve* courbe = nullptr;
  AcDbPolyline* fusionnee = nullptr;  // the curve, once it is a polyline that a fusion made
  AcGePoint2d gauche{kAbsent, kAbsent}, droite{kAbsent, kAbsent};

  // Of a polyline that grows, without its parameters: they make the host look at every vertex.
  void lireExtremites() {
    gauche = droite = AcGePoint2d(kAbsent, kAbsent);
    AcGePoint3d debut, fin;
    if (fusionnee && fusionnee->getStartPoint(debut) == Acad::eOk && fusionnee->getEndPoint(fin) == Acad::eOk) {
      gauche = {debut.x, debut.y};
      droite = {fin.x, fin.y};
      if (gauche.x > droite.x) std::swap(gauche, droite);
    } else if (courbe) {
      extremitesCourbe(*courbe, gauche, droite);
    }
  }
  bool presente() const { return gauche.x > kSeuilAbsent && droite.x > kSeuilAbsent; }
  bool touche(const courbeOuverte& autre) const {
    // Every pair is compared, and few are near: abscissas tell most of them apart.
    const auto proches = [](const AcGePoint2d& a, const AcGePoint2d& b) {
      return std::abs(a.x - b.x) < kToleranceJonction && a.distanceTo(b) < kToleranceJonction;
    };
    return proches(gauche, autre.droite) || proches(droite, autre.gauche);
  }
};

bool fusionner(courbeOuverte& premiere, const AcDbCurve& seconde) {
  if (const auto* polyligne = AcDbPolyline::cast(&seconde);
      premiere.fusionnee && polyligne && prolonger(*premiere.fusionnee, *polyligne))
    return true;
  std::unique_ptr<AcDbCurve> resultat;
  if (!fusionnerCourbes(*premiere.courbe, seconde, resultat)) return false;
  if (premiere.courbe->handOverTo(resultat.get(), true, true) != Acad::eObjectToBeDeleted) return false;
  delete premiere.courbe;
  premiere.courbe = resultat.release();
  premiere.fusionnee = AcDbPolyline::cast(premiere.courbe);
  return true;
}

// The first becomes both, the second is erased.
bool absorber(courbeOuverte& premiere, courbeOuverte& seconde) {
  if (!fusionner(premiere, *seconde.courbe)) return false;
  seconde.courbe->erase();
  seconde.courbe->close();
  seconde = {};
  premiere.lireExtremites();
  return true;
}

}  // namespace

bool fusionnerCourbes(const AcDbCurve& courbe1, const AcDbCurve& courbe2, std::unique_ptr<AcDbCurve>& resultat) {
  resultat.reset();
  const auto *polyligne1 = AcDbPolyline::cast(&courbe1), *polyligne2 = AcDbPolyline::cast(&courbe2);
  if (polyligne1 && polyligne2) resultat = fusionnerPolylignes(*polyligne1, *polyligne2);
  const auto *spline1 = AcDbSpline::cast(&courbe1), *spline2 = AcDbSpline::cast(&courbe2);
  if (spline1 && spline2) resultat = fusionnerSplines(*spline1, *spline2);
  return resultat != nullptr;
}

void joindreCourbes(AcDbObjectIdArray& ids) {
  std::vector<courbeOuverte> courbes(static_cast<std::size_t>(ids.length()));
  for (std::size_t i = 0; i < courbes.size(); ++i) {
    acdbOpenObject(courbes[i].courbe, ids[static_cast<int>(i)], AcDb::kForWrite);
    courbes[i].lireExtremites();
  }
  for (std::size_t i = 0; i < courbes.size(); ++i)
    for (std::size_t j = i + 1; j < courbes.size() && courbes[i].presente(); ++j)
      if (courbes[j].presente() && courbes[i].touche(courbes[j])) absorber(courbes[i], courbes[j]);
  AcDbObjectIdArray restantes;
  for (std::size_t i = 0; i < courbes.size(); ++i) {
    if (!courbes[i].courbe) continue;
    courbes[i].courbe->close();
    restantes.append(ids[static_cast<int>(i)]);
  }
  ids = restantes;
}

}  // namespace plv
