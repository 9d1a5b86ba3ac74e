// pl_listerAltitudes: picked project curves, sampled at every abscissa of the natural ground.
// With several sections each curve is picked, so that the pick tells which plane it belongs to.
#include <algorithm>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/elements/altitudes.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/support/courbes/kitCourbes.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr const ACHAR* kPrompt = L"\nElement du projet :";
constexpr double kMemeAbscisse = 1e-8;
constexpr double kToleranceGenerale = 1e-5;
constexpr Adesk::UInt16 kCouleurDebuts = 1, kCouleurFins = 2;

// Hands out entities: each by a pick, or the members of one selection.
class parcoursSelection {
 public:
  explicit parcoursSelection(const profilLong& profil) : m_parPointe(profil.distPc.size() >= 2) {
    if (m_parPointe) return;
    acutPrintf(kPrompt);
    m_etat = acedSSGet(L"", nullptr, nullptr, nullptr, m_selection);
    if (m_etat == RTNORM) acedSSLength(m_selection, &m_nombre);
  }
  ~parcoursSelection() {
    if (!m_parPointe && m_etat == RTNORM) acedSSFree(m_selection);
  }
  parcoursSelection(const parcoursSelection&) = delete;
  parcoursSelection& operator=(const parcoursSelection&) = delete;

  // RTNORM with an entity; RTNONE at the end of the selection, RTCAN without one.
  int entiteSuivante(ads_name nom, AcGePoint3d& point) {
    if (m_parPointe) return acedEntSel(kPrompt, nom, asDblArray(point));
    if (m_etat != RTNORM) return RTCAN;
    if (m_place >= m_nombre) return RTNONE;
    return acedSSName(m_selection, m_place++, nom);
  }

 private:
  bool m_parPointe;
  int m_etat = RTNORM;
  ads_name m_selection = {};
  Adesk::Int32 m_nombre = 0, m_place = 0;
};

void dessinerPoints(const AcGePoint2dArray& points, Adesk::UInt16 couleur) {
  auto polyligne = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(points.length()));
  for (const AcGePoint2d& point : points) polyligne->addVertexAt(polyligne->numVerts(), point, 0.0, -1.0, -1.0);
  polyligne->setColorIndex(couleur);
  ajouterEspaceObjet(std::move(polyligne));
}

// The pieces of a picked entity, in the drawing's coordinates. Kept as it is: of a class without a reading of its own,
// two polylines of the starts and of the ends are left in the drawing.
bool lireSegments(AcDbObjectId id, segmentsAltitude& segments) {
  AcDbEntityPointer entite(id, AcDb::kForWrite);
  if (entite.openStatus() != Acad::eOk) return false;
  const auto* courbe = AcDbCurve::cast(entite);
  if (!courbe) return false;
  entite->highlight();
  if (segmentsDessin(*courbe, segments)) return true;
  segmentsCourbe(*courbe, segments.debuts, segments.fins, kToleranceGenerale);
  dessinerPoints(segments.debuts, kCouleurDebuts);
  dessinerPoints(segments.fins, kCouleurFins);
  return true;
}

void rendrePoints(std::vector<AcGePoint2d>& points, double origine) {
  if (points.empty()) return;
  std::sort(points.begin(), points.end(),
            [](const AcGePoint2d& a, const AcGePoint2d& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
  listeRb liste(acutNewRb(RTLB));
  double gardee = 0;
  bool premier = true;
  for (const AcGePoint2d& point : points) {
    const double x = point.x - origine;
    if (!premier && !(std::abs(x - gardee) >= kMemeAbscisse)) continue;
    gardee = x;
    premier = false;
    const ads_point rendu = {x, point.y, 0.0};
    liste.ajouter(acutBuildList(RTPOINT, rendu, RTNONE));
  }
  liste.ajouter(acutNewRb(RTLE));
  acedRetList(liste.debut());
}

}  // namespace

void pl_listerAltitudes() {
  ArgsLisp args;
  commencerAppel(args);
  profilLong profil;
  if (!conforme(args, "N") || !profil.lireNom(args.tete()->resval.rlname)) return;
  std::vector<AcGePoint2d> points;
  AcDbObjectIdArray surlignees;
  parcoursSelection parcours(profil);
  ads_name nom;
  AcGePoint3d pris;
  while (parcours.entiteSuivante(nom, pris) == RTNORM) {
    AcDbObjectId id;
    segmentsAltitude segments;
    if (acdbGetObjectId(id, nom) != Acad::eOk || !lireSegments(id, segments)) continue;
    surlignees.append(id);
    mettreEnAltitude(segments, profil, altitudeReference(profil, xDessin(pris.x)));
    for (const pointAltitude& point : pointsAuTn(segments, profil)) points.emplace_back(point.x.valeur, point.z.valeur);
  }
  for (const AcDbObjectId& id : surlignees) surligner(id, false);
  rendrePoints(points, profil.position.x);
}

}  // namespace plv
