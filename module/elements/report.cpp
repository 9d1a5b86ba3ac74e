// pl_repspc: a picked curve is cut where sections change, and each piece brought to the altitudes that the section
// under the pick gives it. Before that it is trimmed to the profile's extent.
#include "hote/acdb.h"
#include "hote/aced.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/coupes.h"
#include "module/elements/fonctionsElements.h"
#include "module/profil/profilLong.h"

namespace plv {

namespace {

constexpr double kAuBord = 1e-6;

xDessin finProfil(const profilLong& profil) { return profil.xDe(distanceProfil(profil.distTn.back())); }

// Cuts the curve and puts its pieces in its place: those that `garder` takes, which it may move. It is given the ends.
template <class GARDER>
void decouper(AcDbObjectId id, const std::vector<double>& coupes, GARDER garder) {
  courbeOuverte source(id);
  if (!source.presente()) return;
  piecesCourbe pieces;
  bool remplacer = false;
  couperCourbe(*source, coupes, pieces, remplacer);
  if (pieces.size() < 2) return;
  AcDbPoint proprietes;
  proprietes.setPropertiesFrom(&*source);
  AcDbObjectIdArray nouveaux;
  for (pieceCourbe& piece : pieces) {
    AcGePoint2d gauche, droite;
    extremitesCourbe(*piece, gauche, droite);
    if (!garder(*piece, gauche, droite)) continue;
    piece->setPropertiesFrom(&proprietes);
    placerPiece(source, std::move(piece), nouveaux);
  }
}

// Cuts at the limit and drops the pieces that `dehors` tells, by the distances of their ends to the limit.
template <class DEHORS>
void rogner(AcDbObjectId id, xDessin limite, DEHORS dehors) {
  decouper(id, {limite.valeur}, [&](AcDbCurve&, const AcGePoint2d& gauche, const AcGePoint2d& droite) {
    return !dehors(gauche.x - limite.valeur) || !dehors(droite.x - limite.valeur);
  });
}

void rogneAGauche(AcDbObjectId id, const profilLong& profil) {
  rogner(id, xDessin(profil.position.x), [](double ecart) { return ecart <= kAuBord; });
}
void rogneADroite(AcDbObjectId id, const profilLong& profil) {
  rogner(id, finProfil(profil), [](double ecart) { return ecart >= -kAuBord; });
}

void reporterCourbe(AcDbObjectId id, const profilLong& profil, std::size_t a, std::size_t b, xDessin xPris) {
  const std::size_t p = profil.indexPc(xPris);
  if (a > b) std::swap(a, b);
  if (p < a || p > b) {
    // Kept as it is, to the letter: users know the message.
    acutPrintf(L"\nQQue chose ne va pas !");
    return;
  }
  std::vector<double> coupes;
  for (std::size_t i = a + 1; i <= b; ++i) coupes.push_back(profil.xDe(distanceProfil(profil.distPc[i])).valeur);
  decouper(id, coupes, [&](AcDbCurve& piece, const AcGePoint2d& gauche, const AcGePoint2d& droite) {
    const std::size_t k = profil.indexPc(xDessin((gauche.x + droite.x) / 2));
    if (k != p) {
      const double dy = (profil.altitudeSection(p) - profil.altitudeSection(k)) * profil.echelleV;
      piece.transformBy(AcGeMatrix3d::translation({0.0, dy, 0.0}));
    }
    return true;
  });
}

// The points at the two ends. False for what is no curve.
bool lireBouts(AcDbObjectId id, AcGePoint3d& debut, AcGePoint3d& fin) {
  AcDbObjectPointer<AcDbCurve> courbe(id, AcDb::kForWrite);
  double auDebut = 0, aLaFin = 0;
  return courbe.openStatus() == Acad::eOk && courbe->getStartParam(auDebut) == Acad::eOk &&
         courbe->getEndParam(aLaFin) == Acad::eOk && courbe->getPointAtParam(auDebut, debut) == Acad::eOk &&
         courbe->getPointAtParam(aLaFin, fin) == Acad::eOk;
}

// Trims and transfers one curve. Its sections are those of its ends before it is trimmed.
void reporter(AcDbObjectId id, const profilLong& profil, xDessin xPris) {
  AcGePoint3d debut, fin;
  if (!lireBouts(id, debut, fin)) return;
  const xDessin auDebut(debut.x), aLaFin(fin.x), origine(profil.position.x);
  const std::size_t a = profil.indexPc(auDebut), b = profil.indexPc(aLaFin);
  if (auDebut < origine || aLaFin < origine) rogneAGauche(id, profil);
  if (!profil.distTn.empty() && (auDebut > finProfil(profil) || aLaFin > finProfil(profil))) rogneADroite(id, profil);
  if (a != b) reporterCourbe(id, profil, a, b, xPris);
}

}  // namespace

void pl_repspc() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  if (!conforme(args, "N") || !profil.lireNom(args.tete()->resval.rlname)) return;
  ads_name nom;
  ads_point pris;
  while (acedEntSel(L"\nElement a reporter:", nom, pris) == RTNORM) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, nom) == Acad::eOk) reporter(id, profil, xDessin(pris[0]));
  }
}

}  // namespace plv
