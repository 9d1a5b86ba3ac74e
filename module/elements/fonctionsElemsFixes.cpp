// pl_efix, pl_elem_ponct and pl_dumpdata: the static elements of a profile, for LISP.
// The dump is a debugging aid: it shows what the reader left over.
#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

// The profile and the support object that a type word selects. False when either can't be had.
bool lireSupport(const ArgsLisp& args, profilLong& profil, AcDbObjectId& support) {
  return profil.lireNom(args.tete()->resval.rlname) && profil.idParMotCle(valeurTexte(args.nieme(1)), support);
}

void afficherNoeud(const resbuf& rb) {
  switch (rb.restype) {
    case kGroupePoint: acutPrintf(L"\t X=%.4f Y=%.4f", rb.resval.rpoint[0], rb.resval.rpoint[1]); break;
    case kGroupeAccolade: acutPrintf(L"%ls", rb.resval.rstring); break;
    case kGroupePointeur:
      acutPrintf(L"\t [%d,%d]", static_cast<int>(rb.resval.rlname[0]), static_cast<int>(rb.resval.rlname[1]));
      break;
    default: acutPrintf(L"\t * Code inconnu:%d *", rb.restype); break;
  }
}

void afficherSupport(AcDbObjectId support, int indice) {
  const listeRb chaine(lireXrecord(support, kRecordStatiques));
  const resbuf* curseur = chaine.tete();
  std::vector<elemsFixesKavel> groupes;
  lireGroupesValeur(groupes, curseur);
  acutPrintf(L"\nElements statiques %d \n", indice);
  for (; curseur; curseur = curseur->rbnext) afficherNoeud(*curseur);
  acutPrintf(L"\nElements projet:");
  AcDbObjectIdArray projet;
  lireListeProjet(support, projet);
  for (const AcDbObjectId& id : projet) acutPrintf(L"\t%d", static_cast<int>(id.asOldId()));
}

struct titreGenre {
  const ACHAR* titre;
  genreLigne genre;
};
constexpr titreGenre kTitres[] = {
    {L"\nVoirie", kVoirie}, {L"\nAssainissement", kAss}, {L"\nAEP", kAep}, {L"\nTerrassements", kTerra},
    {L"\nProjet", kProj},   {L"\nGénérique", kGen},      {L"\nTN", kTn}};

}  // namespace

void pl_efix() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  AcDbObjectId support;
  if (!conforme(args, "NC") || !lireSupport(args, profil, support)) return;
  listeElemsFixes liste;
  lireElemsFixes(liste, support);
  editerElemsFixes(liste, profil.position);
  ecrireElemsFixes(liste, support);
}

// Kept as it is: the third argument is taken as a point whatever it is, since the check that there once was looked at
// the second one. Front-ends may rely on what that lets through.
void pl_elem_ponct() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  AcDbObjectId support;
  if (args.nombre() < 4 || !conforme(args, "NC") || !estNom(args.nieme(3)) || !lireSupport(args, profil, support) ||
      support.isNull())
    return;
  const resbuf* lu = args.nieme(2);
  const AcGePoint3d p = valeurPoint(lu);
  const ads_point place = {p.x - profil.position.x, p.y, p.z};
  listeRb chaine(lireXrecord(support, kRecordStatiques));
  ouvrirGroupe(chaine, place);
  for (const resbuf* rb = args.nieme(3); rb; rb = rb->rbnext)
    if (estNom(rb)) chaine.ajouter(acutBuildList(kGroupePointeur, rb->resval.rlname, RTNONE));
  fermerGroupe(chaine);
  ecrireXrecord(support, kRecordStatiques, chaine.tete());
}

void pl_dumpdata() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  if (!conforme(args, "N") || !profil.lireNom(args.tete()->resval.rlname)) return;
  int indice = 0;
  for (const titreGenre& t : kTitres) {
    acutPrintf(t.titre);
    if (!profil.ids[t.genre].isNull()) afficherSupport(profil.ids[t.genre], indice);
    ++indice;
  }
}

}  // namespace plv
