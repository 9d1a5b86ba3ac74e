// pl_cotauto: altitudes of project curves in a band beneath the profile, and their heights above the ground.
// The heights are static elements of the support, so that they follow changes of the profile.
#include "hote/acdb.h"
#include "module/commande/argsLisp.h"
#include "module/elements/altitudes.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/support/kitEntites.h"
#include "module/support/kitGroupes.h"

namespace plv {

namespace {

constexpr double kFacteurTexte = 0.8;
constexpr double kEcartTexte = 2.0;  // of a height above its curve, in text heights
constexpr int kTailleTexte = 400;  // the greatest altitude has 309 digits before its point

struct reglages {
  double decalage, rotation;
  bool altitudes, hauteurs;
};

void ecrireCote(const ACHAR* format, double valeur, const AcGePoint3d& position, AcDb::TextHorzMode mode,
                const profilLong& profil, double rotation, AcDbObjectIdArray& ids) {
  wchar_t texte[kTailleTexte];
  std::swprintf(texte, kTailleTexte, format, valeur);
  auto cote = std::make_unique<AcDbText>(position, texte, styleCourant(), profil.hauteurTexte, rotation);
  cote->setWidthFactor(kFacteurTexte);
  cote->setHorizontalMode(mode);
  cote->setVerticalMode(AcDb::kTextVertMid);
  cote->setAlignmentPoint(position);
  ajouterEtRetenir(ids, std::move(cote));
}

// X of the drawing and altitude, once for each ground abscissa that the curve covers.
AcGePoint2dArray echantillons(const segmentsAltitude& segments, const profilLong& profil) {
  AcGePoint2dArray cotes;
  visiterTn(segments, profil, [&](double x, double altitude) {
    if (cotes.isEmpty() || x > cotes.last().x) cotes.append(AcGePoint2d(x, altitude));
  });
  return cotes;
}

void ecrireAltitudes(const AcGePoint2dArray& cotes, const profilLong& profil, const AcGePoint3d& support,
                     const reglages& r) {
  AcDbObjectIdArray ids;
  for (const AcGePoint2d& cote : cotes)
    ecrireCote(L"%.2f", cote.y, {support.x + cote.x - profil.position.x, r.decalage + support.y, 0.0}, AcDb::kTextMid,
               profil, r.rotation, ids);
  creerGroupe(ids, L"*");
}

void ecrireHauteurs(const AcGePoint2dArray& cotes, const profilLong& profil, double reference, AcDbObjectId idSupport,
                    const reglages& r) {
  listeElemsFixes groupes;
  lireElemsFixes(groupes, idSupport);
  AcDbObjectIdArray ids;
  for (const AcGePoint2d& cote : cotes) {
    const double terrain = profil.altitudeTn(cote.x);
    const double y = (std::max(terrain, cote.y) - reference) * profil.echelleV + profil.position.y +
                     kEcartTexte * profil.hauteurTexte;
    const int avant = ids.length();
    ecrireCote(L"%+.2f", cote.y - terrain, {cote.x, y, 0.0}, AcDb::kTextLeft, profil, r.rotation, ids);
    if (ids.length() > avant)
      chercherGroupe(groupes, cote.x - profil.position.x, kTolerancePosition).elements.append(ids.last());
  }
  ecrireElemsFixes(groupes, idSupport);
  creerGroupe(ids, L"*");
}

bool lireInsertion(AcDbObjectId id, AcGePoint3d& insertion) {
  AcDbObjectPointer<AcDbBlockReference> bloc(id);
  if (bloc.openStatus() != Acad::eOk || bloc->isA() != AcDbBlockReference::desc()) return false;
  insertion = bloc->position();
  return true;
}

bool dimensionnerCourbe(const profilLong& profil, AcDbObjectId idCourbe, const AcGePoint3d& pris,
                        AcDbObjectId idSupport, const reglages& r) {
  const double reference = altitudeReference(profil, pris.x);
  AcGePoint3d support;
  if (!lireInsertion(idSupport, support)) return false;
  segmentsAltitude segments;
  {
    AcDbObjectPointer<AcDbCurve> courbe(idCourbe);
    if (courbe.openStatus() != Acad::eOk || !segmentsDessin(*courbe, segments)) return false;
  }
  mettreEnAltitude(segments, profil, reference);
  const AcGePoint2dArray cotes = echantillons(segments, profil);
  if (r.altitudes) ecrireAltitudes(cotes, profil, support, r);
  if (r.hauteurs) ecrireHauteurs(cotes, profil, reference, idSupport, r);
  return true;
}

// Only the first 16 bits of a flag count; a missing one is yes.
bool drapeau(const resbuf* rb) { return !rb || static_cast<Adesk::Int16>(valeurEntiere(rb)) != 0; }

bool estReel(const resbuf* rb) { return rb && rb->restype == RTREAL; }

void cotation(const ArgsLisp& args, ads_name selection) {
  profilLong profil;
  AcDbObjectId support;
  if (!conforme(args, "NC") || !estReel(args.nieme(2)) || !estReel(args.nieme(3)) ||
      !profil.lireNom(args.tete()->resval.rlname) || !profil.idParMotCle(valeurTexte(args.nieme(1)), support)) {
    acedSSFree(selection);
    return;
  }
  const reglages r{valeurReelle(args.nieme(2)), valeurReelle(args.nieme(3)), drapeau(args.nieme(4)),
                   drapeau(args.nieme(5))};
  acutPrintf(L"\nSelectionnez les éléments que vous voulez coter");
  AcDbObjectIdArray liste;
  lireListeProjet(support, liste);
  ads_name nom;
  AcGePoint3d pris;
  while (acedEntSel(L"\nElement :", nom, asDblArray(pris)) == RTNORM) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, nom) != Acad::eOk || !dimensionnerCourbe(profil, id, pris, support, r)) continue;
    acedSSAdd(nom, selection, selection);
    marquerProjet(id);
    if (!liste.contains(id)) liste.append(id);
  }
  ecrireListeProjet(support, liste);
  acedRetName(selection, RTPICKS);
}

}  // namespace

void pl_cotauto() {
  ArgsLisp args;
  args.lireArgs();
  ads_name selection;
  if (acedSSAdd(nullptr, nullptr, selection) == RTNORM) cotation(args, selection);
}

}  // namespace plv
