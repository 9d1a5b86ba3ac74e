// pl_cotauto: altitudes of project curves in a band beneath the profile, and their heights above the ground.
// The heights are static elements of the support, so that they follow changes of the profile.
#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/altitudes.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitGroupes.h"

namespace plv {

namespace {

constexpr double kFacteurTexte = 0.8;
constexpr double kEcartTexte = 2.0;  // of a height above its curve, in text heights
constexpr int kTailleTexte = 400;    // the greatest altitude has 309 digits before its point

struct reglagesCotation {
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

using cotesCourbe = std::vector<pointAltitude>;

// Once for each ground abscissa that the curve covers.
cotesCourbe cotesAuTn(const segmentsAltitude& segments, const profilLong& profil) {
  cotesCourbe cotes;
  for (const pointAltitude& point : pointsAuTn(segments, profil))
    if (cotes.empty() || point.x > cotes.back().x) cotes.push_back(point);
  return cotes;
}

void ecrireAltitudes(const cotesCourbe& cotes, const profilLong& profil, const AcGePoint3d& support,
                     const reglagesCotation& r) {
  AcDbObjectIdArray ids;
  for (const pointAltitude& cote : cotes)
    ecrireCote(L"%.2f", cote.z.valeur, {support.x + cote.x.valeur - profil.position.x, r.decalage + support.y, 0.0},
               AcDb::kTextMid, profil, r.rotation, ids);
  creerGroupe(ids, L"*");
}

void ecrireHauteurs(const cotesCourbe& cotes, const profilLong& profil, altitudeVraie reference, AcDbObjectId idSupport,
                    const reglagesCotation& r) {
  listeElemsFixes groupes;
  lireElemsFixes(groupes, idSupport);
  AcDbObjectIdArray ids;
  for (const pointAltitude& cote : cotes) {
    const altitudeVraie terrain = profil.altitudeTn(cote.x);
    const double y = profil.yDe(std::max(terrain, cote.z), reference).valeur + kEcartTexte * profil.hauteurTexte;
    const int avant = ids.length();
    ecrireCote(L"%+.2f", cote.z - terrain, {cote.x.valeur, y, 0.0}, AcDb::kTextLeft, profil, r.rotation, ids);
    if (ids.length() > avant)
      chercherGroupe(groupes, profil.distanceDe(cote.x), kTolerancePosition).elements.append(ids.last());
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
                        AcDbObjectId idSupport, const reglagesCotation& r) {
  const altitudeVraie reference = altitudeReference(profil, xDessin(pris.x));
  AcGePoint3d support;
  if (!lireInsertion(idSupport, support)) return false;
  segmentsAltitude segments;
  {
    AcDbObjectPointer<AcDbCurve> courbe(idCourbe);
    if (courbe.openStatus() != Acad::eOk || !segmentsDessin(*courbe, segments)) return false;
  }
  mettreEnAltitude(segments, profil, reference);
  const cotesCourbe cotes = cotesAuTn(segments, profil);
  if (r.altitudes) ecrireAltitudes(cotes, profil, support, r);
  if (r.hauteurs) ecrireHauteurs(cotes, profil, reference, idSupport, r);
  return true;
}

// Kept as it is: only the lower 16 bits of a flag count. A missing one is yes.
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
  const reglagesCotation r{valeurReelle(args.nieme(2)), valeurReelle(args.nieme(3)), drapeau(args.nieme(4)),
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
