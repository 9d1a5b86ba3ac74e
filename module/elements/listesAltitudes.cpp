// pl_yat, pl_PointsPrjRef and pl_glp: geometry of project lines read back for LISP.
// Results are lists of points, or of sublists, in the drawing's or in profile terms.
#include <limits>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/elements/fonctionsElements.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitSelections.h"

namespace plv {

namespace {

constexpr double kHorsCourbe = 1e36, kPenteVerticale = 1e36;
constexpr double kNul = 1e-8;

// Appends the points where the curve meets the vertical, seen in plan.
void intersectionsVerticale(const AcDbCurve& courbe, xDessin x, AcGePoint3dArray& points) {
  AcDbXline verticale;
  verticale.setBasePoint({x.valeur, 0.0, 0.0});
  verticale.setUnitDir({0.0, 1.0, 0.0});
  const int avant = points.length();
  const Acad::ErrorStatus etat = courbe.intersectWith(&verticale, AcDb::kOnBothOperands, AcGePlane(), points);
  if (etat != Acad::eOk || points.length() == avant)
    verticale.intersectWith(&courbe, AcDb::kOnBothOperands, AcGePlane(), points);
}

yDessin plusBas(const AcGePoint3dArray& points) {
  double y = kHorsCourbe;
  for (const AcGePoint3d& point : points) y = std::min(y, point.y);
  return yDessin(y);
}

// The curves of a list, open for reading as long as this lives.
class courbesOuvertes {
 public:
  explicit courbesOuvertes(const AcDbObjectIdArray& ids) {
    for (const AcDbObjectId& id : ids) {
      AcDbCurve* courbe = nullptr;
      if (acdbOpenObject(courbe, id, AcDb::kForRead) == Acad::eOk) m_courbes.push_back(courbe);
    }
  }
  ~courbesOuvertes() {
    for (AcDbCurve* courbe : m_courbes) courbe->close();
  }
  courbesOuvertes(const courbesOuvertes&) = delete;
  courbesOuvertes& operator=(const courbesOuvertes&) = delete;

  // The lowest point above x; false where no curve is met.
  bool plusBasEn(xDessin x, yDessin& y) const {
    AcGePoint3dArray points;
    for (const AcDbCurve* courbe : m_courbes) intersectionsVerticale(*courbe, x, points);
    y = plusBas(points);
    return !points.isEmpty();
  }

 private:
  std::vector<AcDbCurve*> m_courbes;
};

void lireSelection(resbuf* rb, AcDbObjectIdArray& ids) { idsDeSelection(rb->resval.rlname, ids); }

bool estSelection(const resbuf* rb) { return rb && rb->restype == RTPICKS; }

// A list between its brackets; nil for none.
void rendreListe(listeRb& elements) {
  if (!elements.tete()) {
    acedRetNil();
    return;
  }
  elements.ajouter(acutNewRb(RTLE));
  acedRetList(elements.debut());
}
void ajouterPremier(listeRb& elements) {
  if (!elements.tete()) elements.ajouter(acutNewRb(RTLB));
}

struct ecriture {
  const profilLong& profil;
  listeRb& liste;

  // Abscissa and altitude.
  void versProfil(const AcGePoint3d& p, altitudeVraie reference, ads_point point) const {
    point[0] = profil.distanceDe(xDessin(p.x)).valeur;
    point[1] = profil.altitudeDeY(yDessin(p.y), reference).valeur;
    point[2] = 0.0;
  }

  // A piece with its slope, or nil in its place.
  void piece(const AcGePoint3d& debut, const AcGePoint3d& fin, altitudeVraie reference, bool avecPente) const {
    ads_point a, b;
    versProfil(debut, reference, a);
    versProfil(fin, reference, b);
    const double dx = fin.x - debut.x;
    const double pente = dx == 0.0 ? kPenteVerticale : (fin.y - debut.y) / profil.echelleV / dx;
    ajouterPremier(liste);
    liste.ajouter(acutBuildList(RTLB, RTPOINT, a, RTPOINT, b, RTNONE));
    liste.ajouter(avecPente ? acutBuildList(RTREAL, pente, RTLE, RTNONE) : acutBuildList(RTNIL, RTLE, RTNONE));
  }

  // The extent of a curve, and its name for a spline that the front-end knows.
  void etendue(const AcDbCurve& courbe, const ads_name* nom) const {
    AcDbExtents boite;
    if (courbe.getGeomExtents(boite) != Acad::eOk) return;
    double xa = std::max(0.0, boite.minPoint().x - profil.position.x);
    const double xb = std::max(0.0, boite.maxPoint().x - profil.position.x);
    xa = std::min(xa, profil.longueurTn());
    if (std::abs(xa - xb) <= kNul) return;
    const ads_point a = {xa, 0.0, 0.0}, b = {xb, 0.0, 0.0};
    ajouterPremier(liste);
    liste.ajouter(acutBuildList(RTLB, RTPOINT, a, RTPOINT, b, RTNONE));
    liste.ajouter(nom ? acutBuildList(RTENAME, *nom, RTLE, RTNONE) : acutBuildList(RTNIL, RTLE, RTNONE));
  }
};

// Kept as it is: the plane of a piece is looked up at the smaller of the end's Y and the start's X. It is those two
// numbers that are compared; the scan of the sections makes the outcome usable.
altitudeVraie referencePiece(const profilLong& profil, const AcGePoint3d& debut, const AcGePoint3d& fin) {
  return profil.pcEnX(xDessin(std::min(fin.y, debut.x)));
}

void ecrirePolyligne(const ecriture& e, const AcDbPolyline& polyligne) {
  const unsigned int n = polyligne.numVerts();
  if (n < 2) return;
  AcGePoint3d debut, fin;
  polyligne.getPointAt(0, debut);
  polyligne.getPointAt(n - 1, fin);
  const altitudeVraie reference = referencePiece(e.profil, debut, fin);
  for (unsigned int i = 0; i + 1 < n; ++i) {
    double courbure = 0;
    polyligne.getPointAt(i, debut);
    polyligne.getPointAt(i + 1, fin);
    polyligne.getBulgeAt(i, courbure);
    if (debut.distanceTo(fin) > kNul) e.piece(debut, fin, reference, std::abs(courbure) <= kNul);
  }
}

void ecrireCourbe(const ecriture& e, const AcDbCurve& courbe) {
  if (const auto* ligne = AcDbLine::cast(&courbe)) {
    const AcGePoint3d debut = ligne->startPoint(), fin = ligne->endPoint();
    e.piece(debut, fin, referencePiece(e.profil, debut, fin), true);
  } else if (const auto* polyligne = AcDbPolyline::cast(&courbe)) {
    ecrirePolyligne(e, *polyligne);
  } else if (AcDbSpline::cast(&courbe)) {
    ArgsLisp donnees;
    ads_name nom;
    if (donnees.lireXData(courbe, kApplicationCles) && acdbGetAdsName(nom, courbe.objectId()) == Acad::eOk)
      e.etendue(courbe, &nom);
  } else {
    e.etendue(courbe, nullptr);
  }
}

}  // namespace

void pl_yat() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "NR")) return;
  AcDbObjectPointer<AcDbCurve> courbe(valeurId(args.tete()));
  if (courbe.openStatus() != Acad::eOk) return;
  AcGePoint3dArray points;
  intersectionsVerticale(*courbe, xDessin(valeurReelle(args.nieme(1))), points);
  if (!points.isEmpty()) acedRetReal(plusBas(points).valeur);
}

void pl_PointsPrjRef() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  if (!conforme(args, "N") || args.nombre() < 3 || !estSelection(args.nieme(1)) || !estSelection(args.nieme(2)) ||
      !profil.lireNom(args.tete()->resval.rlname))
    return;
  AcDbObjectIdArray idsA, idsB;
  lireSelection(args.nieme(1), idsA);
  lireSelection(args.nieme(2), idsB);
  const courbesOuvertes a(idsA), b(idsB);
  listeRb liste;
  for (const double d : profil.distTn) {
    const xDessin x = profil.xDe(distanceProfil(d));
    yDessin ya, yb;
    if (!a.plusBasEn(x, ya) || !b.plusBasEn(x, yb)) continue;
    const ads_point triple = {x.valeur, ya.valeur, yb.valeur};
    ajouterPremier(liste);
    liste.ajouter(acutBuildList(RT3DPOINT, triple, RTNONE));
  }
  rendreListe(liste);
}

void pl_glp() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  if (!conforme(args, "N") || !estSelection(args.nieme(1)) || args.nombre() < 2 ||
      !profil.lireNom(args.tete()->resval.rlname))
    return;
  AcDbObjectIdArray ids;
  lireSelection(args.nieme(1), ids);
  listeRb liste;
  for (const AcDbObjectId& id : ids) {
    AcDbObjectPointer<AcDbCurve> courbe(id);
    if (courbe.openStatus() == Acad::eOk) ecrireCourbe({profil, liste}, *courbe);
  }
  rendreListe(liste);
}

}  // namespace plv
