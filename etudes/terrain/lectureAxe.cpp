// Reading curves: light and old polylines with their bulges, arcs and lines as they are, the others by places on them.
#include "etudes/terrain/lectureAxe.h"

#include <memory>

#include "module/support/base/nombres.h"
#include "module/support/courbes/kitCourbes.h"

namespace etu {

namespace {

constexpr double kEnPlan = 1e-9;       // of the normal of a curve that lies in the plan
constexpr double kBoutsJoints = 1e-3;  // ends of a chain, metres
constexpr double kPlusLoin = 1e11;     // no axis lies there, and no number is none
constexpr int kProfondeurMax = 16;

double sensDe(const AcGeVector3d& normale) {
  return std::abs(normale.x) > kEnPlan || std::abs(normale.y) > kEnPlan ? 0 : normale.z > 0 ? 1 : -1;
}

// Between two parameters whose points are known: halved until the quarters lie within the rise of the chord.
void echantillonner(const AcDbCurve& courbe, double p0, const AcGePoint3d& a, double p1, const AcGePoint3d& b,
                    int profondeur, axePlan& axe) {
  bool proche = profondeur >= kProfondeurMax;
  AcGePoint3d milieu;
  if (!proche && courbe.getPointAtParam(0.5 * (p0 + p1), milieu) == Acad::eOk) {
    proche = profondeur >= 2;
    for (const double part : {0.25, 0.5, 0.75}) {
      AcGePoint3d p;
      if (courbe.getPointAtParam(p0 + part * (p1 - p0), p) != Acad::eOk) continue;
      const AcGeVector3d corde = b - a, ecart = p - a;
      const double l = corde.length();
      if ((l > 0 ? corde.crossProduct(ecart).length() / l : ecart.length()) > kFlecheAxe) proche = false;
    }
  }
  if (proche) {
    axe.push_back({b.x, b.y, b.z, 0});
    return;
  }
  echantillonner(courbe, p0, a, 0.5 * (p0 + p1), milieu, profondeur + 1, axe);
  echantillonner(courbe, 0.5 * (p0 + p1), milieu, p1, b, profondeur + 1, axe);
}

axePlan parPlaces(const AcDbCurve& courbe) {
  double p0 = 0, p1 = 0;
  AcGePoint3d a, b;
  if (courbe.getStartParam(p0) != Acad::eOk || courbe.getEndParam(p1) != Acad::eOk ||
      courbe.getPointAtParam(p0, a) != Acad::eOk || courbe.getPointAtParam(p1, b) != Acad::eOk)
    return {};
  axePlan axe{{a.x, a.y, a.z, 0}};
  echantillonner(courbe, p0, a, p1, b, 0, axe);
  return axe;
}

axePlan dePolyligne(const AcDbPolyline& polyligne) {
  const double sens = sensDe(polyligne.normal());
  if (sens == 0) return parPlaces(polyligne);
  axePlan axe;
  for (unsigned int i = 0; i < polyligne.numVerts(); ++i) {
    AcGePoint3d p;
    double bulbe = 0;
    polyligne.getPointAt(i, p);
    polyligne.getBulgeAt(i, bulbe);
    axe.push_back({p.x, p.y, p.z, sens * bulbe});
  }
  if (polyligne.isClosed() && !axe.empty()) axe.push_back(axe.front());
  if (!axe.empty()) axe.back().bulbe = 0;
  return axe;
}

axePlan dePolyligne3d(const AcDb3dPolyline& polyligne) {
  if (polyligne.polyType() != AcDb::k3dSimplePoly) return parPlaces(polyligne);
  axePlan axe;
  const std::unique_ptr<AcDbObjectIterator> sommets(polyligne.vertexIterator());
  for (; !sommets->done(); sommets->step()) {
    const AcDbObjectPointer<AcDbVertex> sommet(sommets->objectId());
    if (sommet.openStatus() != Acad::eOk) continue;
    const AcGePoint3d p = sommet->position();
    axe.push_back({p.x, p.y, p.z, 0});
  }
  if (polyligne.isClosed() && !axe.empty()) axe.push_back(axe.front());
  return axe;
}

axePlan deDeuxBouts(const AcDbCurve& courbe, double bulbe) {
  AcGePoint3d a, b;
  if (courbe.getStartPoint(a) != Acad::eOk || courbe.getEndPoint(b) != Acad::eOk) return {};
  return {{a.x, a.y, a.z, bulbe}, {b.x, b.y, b.z, 0}};
}

axePlan dePolyligneAncienne(AcDb2dPolyline& polyligne) {
  const std::unique_ptr<AcDbPolyline> legere = plv::polyligneDe2d(polyligne);
  if (!legere) return parPlaces(polyligne);
  legere->setNormal(polyligne.normal());
  legere->setElevation(polyligne.elevation());
  legere->setClosed(polyligne.isClosed());
  return dePolyligne(*legere);
}

bool proches(const sommetAxe& a, const sommetAxe& b) { return std::hypot(a.x - b.x, a.y - b.y) <= kBoutsJoints; }

void coller(axePlan& axe, const axePlan& suite) {
  axe.back().bulbe = suite.front().bulbe;
  axe.insert(axe.end(), suite.begin() + 1, suite.end());
}

std::wstring lieu(const sommetAxe& s) { return plv::texteFixe(s.x, 2) + L", " + plv::texteFixe(s.y, 2); }

// Takes the piece that goes on at the end of the axis, or comes before its start.
bool prolonger(axePlan& axe, std::vector<axePlan>& reste) {
  for (std::size_t i = 0; i < reste.size(); ++i) {
    axePlan piece = reste[i];
    const bool apres = proches(axe.back(), piece.front()) || proches(axe.back(), piece.back());
    if (!apres && !proches(axe.front(), piece.front()) && !proches(axe.front(), piece.back())) continue;
    if (apres ? !proches(axe.back(), piece.front()) : !proches(axe.front(), piece.back())) piece = inverse(piece);
    if (!apres) std::swap(axe, piece);
    coller(axe, piece);
    reste.erase(reste.begin() + static_cast<std::ptrdiff_t>(i));
    return true;
  }
  return false;
}

}  // namespace

axePlan axeDeCourbe(const AcDbEntity& entite) {
  const AcDbCurve* courbe = AcDbCurve::cast(&entite);
  axePlan axe;
  if (const auto* polyligne = AcDbPolyline::cast(&entite)) {
    axe = dePolyligne(*polyligne);
  } else if (const auto* trois = AcDb3dPolyline::cast(&entite)) {
    axe = dePolyligne3d(*trois);
  } else if (auto* ancienne = AcDb2dPolyline::cast(&entite)) {
    axe = dePolyligneAncienne(*ancienne);
  } else if (const auto* arc = AcDbArc::cast(&entite)) {
    const double sens = sensDe(arc->normal());
    axe = sens == 0 ? parPlaces(*arc) : deDeuxBouts(*arc, sens * std::tan(0.25 * arc->totalAngle()));
  } else if (AcDbLine::cast(&entite)) {
    axe = deDeuxBouts(*courbe, 0);
  } else if (courbe) {
    axe = parPlaces(*courbe);
  }
  for (const sommetAxe& s : axe)
    if (!(std::abs(s.x) < kPlusLoin && std::abs(s.y) < kPlusLoin && std::abs(s.z) < kPlusLoin) ||
        !std::isfinite(s.bulbe))
      return {};
  return longueur(axe) > 0 ? axe : axePlan{};
}

axePlan enchainer(std::vector<axePlan> pieces) {
  axePlan axe = std::move(pieces.front());
  pieces.erase(pieces.begin());
  while (prolonger(axe, pieces)) {}
  if (!pieces.empty())
    throw refus{L"les courbes de l'axe ne se suivent pas: celle qui commence en " + lieu(pieces.front().front()) +
                L" ne touche pas l'axe, qui va de " + lieu(axe.front()) + L" à " + lieu(axe.back()) +
                L" (les bouts se touchent à 1 mm près)"};
  return axe;
}

}  // namespace etu
