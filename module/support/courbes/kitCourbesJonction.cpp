// Fusion and joining of curves that touch at an end. Fusion makes a new curve of two; joining does so in the drawing,
// where the fusion takes the place and the identity of the first, and the second is erased.
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "module/support/courbes/kitCourbes.h"

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

// Read backwards, a segment leaves the vertex where it ended: its bulge turns the other way, its widths change places.
void copierSommets(const AcDbPolyline& source, bool aRebours, AcDbPolyline& cible) {
  const unsigned int n = source.numVerts();
  for (unsigned int k = 0; k < n; ++k) {
    const unsigned int i = aRebours ? n - 1 - k : k, segment = aRebours ? (i + n - 1) % n : i;
    AcGePoint2d point;
    double courbure = 0, largeurDebut = 0, largeurFin = 0;
    source.getPointAt(i, point);
    source.getBulgeAt(segment, courbure);
    source.getWidthsAt(segment, largeurDebut, largeurFin);
    if (aRebours) {
      courbure = -courbure;
      std::swap(largeurDebut, largeurFin);
    }
    cible.addVertexAt(cible.numVerts(), point, courbure, largeurDebut, largeurFin);
  }
}

// Kept as it is: every vertex of both is copied, so that the joint is there twice, as a segment without length.
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

// The same fusion in place, of a polyline that a fusion has made: as a new one each time, a list of many pieces would
// copy each vertex as many times as pieces follow it. False, with nothing changed, when the joint isn't at its end.
bool prolongerPolyligne(AcDbPolyline& a, const AcDbPolyline& b) {
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

// A curve of the list with its two ends.
class courbeAJoindre {
 public:
  explicit courbeAJoindre(AcDbObjectId id) : m_courbe(id) { lireExtremites(); }

  bool presente() const { return m_gauche.x > kSeuilAbsent && m_droite.x > kSeuilAbsent; }
  bool ouverte() const { return m_courbe.presente(); }
  bool touche(const courbeAJoindre& autre) const {
    // Every pair is compared, and few are near: abscissas tell most of them apart.
    const auto proches = [](const AcGePoint2d& a, const AcGePoint2d& b) {
      return std::abs(a.x - b.x) < kToleranceJonction && a.distanceTo(b) < kToleranceJonction;
    };
    return proches(m_gauche, autre.m_droite) || proches(m_droite, autre.m_gauche);
  }

  // This one becomes the fusion of both, the other is erased. Nothing happens when they have no fusion.
  void joindre(courbeAJoindre& autre) {
    if (!fusionner(*autre.m_courbe)) return;
    autre.m_courbe.effacer();
    autre.lireExtremites();
    lireExtremites();
  }

 private:
  bool fusionner(const AcDbCurve& seconde) {
    const auto* polyligne = AcDbPolyline::cast(&seconde);
    if (m_fusion && polyligne && prolongerPolyligne(*m_fusion, *polyligne)) return true;
    std::unique_ptr<AcDbCurve> resultat;
    if (!fusionnerCourbes(*m_courbe, seconde, resultat) || !m_courbe.remplacer(resultat)) return false;
    m_fusion = AcDbPolyline::cast(&*m_courbe);
    return true;
  }

  void lireExtremites() {
    m_gauche = m_droite = AcGePoint2d(kAbsent, kAbsent);
    if (!ouverte()) return;
    AcGePoint3d debut, fin;
    if (!m_fusion || m_fusion->getStartPoint(debut) != Acad::eOk || m_fusion->getEndPoint(fin) != Acad::eOk)
      return extremitesCourbe(*m_courbe, m_gauche, m_droite);
    // Without the parameters of the growing polyline: they make the host look at every vertex.
    m_gauche = {debut.x, debut.y};
    m_droite = {fin.x, fin.y};
    if (m_gauche.x > m_droite.x) std::swap(m_gauche, m_droite);
  }

  courbeOuverte m_courbe;
  AcDbPolyline* m_fusion = nullptr;  // the same curve, once it is a polyline that a fusion made
  AcGePoint2d m_gauche, m_droite;
};

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
  std::vector<courbeAJoindre> courbes;
  courbes.reserve(static_cast<std::size_t>(ids.length()));
  for (const AcDbObjectId& id : ids) courbes.emplace_back(id);
  for (std::size_t i = 0; i < courbes.size(); ++i)
    for (std::size_t j = i + 1; j < courbes.size() && courbes[i].presente(); ++j)
      if (courbes[j].presente() && courbes[i].touche(courbes[j])) courbes[i].joindre(courbes[j]);
  AcDbObjectIdArray restantes;
  for (std::size_t i = 0; i < courbes.size(); ++i)
    if (courbes[i].ouverte()) restantes.append(ids[static_cast<int>(i)]);
  ids = restantes;
}

}  // namespace plv
