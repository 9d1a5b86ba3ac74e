// plsxd and plgxd: one key of "PLV2_DATA", set and read for LISP.
// The front-end stores through them what profilLong reads back.
#include <memory>

#include "hote/acdb.h"
#include "module/commande/argsLisp.h"
#include "module/commande/conversionXData.h"
#include "module/profil/fonctionsProfil.h"
#include "module/profil/profilLong.h"
#include "module/support/lettres.h"

namespace plv {

namespace {

// The first string node equal to the key, in any case: also a value, which is then taken for the key.
resbuf* chercherCle(resbuf* rb, const std::wstring& cle) {
  while (rb && !(rb->restype == kXTexte && egalSansCasse(rb->resval.rstring, cle))) rb = rb->rbnext;
  return rb;
}

// Puts the pair's value behind the key in place of the one there; the key keeps its spelling.
void remplacerValeur(resbuf* cle, resbuf* paire) {
  resbuf* valeur = paire->rbnext;
  paire->rbnext = nullptr;
  acutRelRb(paire);
  if (resbuf* ancienne = cle->rbnext) {
    valeur->rbnext = ancienne->rbnext;
    ancienne->rbnext = nullptr;
    acutRelRb(ancienne);
  }
  cle->rbnext = valeur;
}

void poserCle(AcDbObject& objet, const std::wstring& cle, const resbuf& valeur) {
  ArgsLisp donnees;
  if (!donnees.lireXData(objet, kApplicationCles))
    donnees.ajouter(acutBuildList(kXApplication, kApplicationCles, RTNONE));
  resbuf* paire = paireXData(cle, valeur);
  if (!paire) return;
  if (resbuf* trouvee = chercherCle(donnees.tete(), cle)) remplacerValeur(trouvee, paire);
  else donnees.ajouter(paire);
  objet.setXData(donnees.tete());
}

void rendreEntite(const ACHAR* handle) {
  ads_name nom;
  if (acdbHandEnt(handle, nom) == RTNORM) acedRetName(nom, RTENAME);
}

void rendreValeur(const resbuf& valeur) {
  switch (valeur.restype) {
    case kXTexte: acedRetStr(valeur.resval.rstring); break;
    case kXHandle: rendreEntite(valeur.resval.rstring); break;
    case kXReel: acedRetReal(valeur.resval.rreal); break;
    case kXEntier16: acedRetInt(valeur.resval.rint); break;
    case kXEntier32:
      if (valeur.resval.rlong != kSansValeur) acedRetInt(valeur.resval.rlong);
      break;
    default: break;
  }
}

}  // namespace

void plsxd() {
  ArgsLisp args;
  args.lireArgs();
  if (args.nombre() != 3 || !conforme(args, "NC")) return;
  AcDbObjectPointer<AcDbObject> objet(valeurId(args.tete()), AcDb::kForWrite);
  if (objet.openStatus() == Acad::eOk) poserCle(*objet, valeurTexte(args.nieme(1)), *args.nieme(2));
}

// An entity that doesn't open sets no result; everything else that has no value gives nil.
void plgxd() {
  ArgsLisp args;
  args.lireArgs();
  if (args.nombre() != 2 || !conforme(args, "NC")) {
    acedRetNil();
    return;
  }
  AcDbObjectPointer<AcDbObject> objet(valeurId(args.tete()));
  if (objet.openStatus() != Acad::eOk) return;
  acedRetNil();
  ArgsLisp donnees;
  const resbuf* cle = chercherCle(donnees.lireXData(*objet, kApplicationCles), valeurTexte(args.nieme(1)));
  if (cle && cle->rbnext) rendreValeur(*cle->rbnext);
}

}  // namespace plv
