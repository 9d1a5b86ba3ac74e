// plsxd and plgxd: one key of "PLV2_DATA", set and read for LISP.
// The front-end stores through them what profilLong reads back.
#include <memory>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/profil/fonctionsProfil.h"
#include "module/profil/profilLong.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

resbuf* paireMarque(const ACHAR* cle, Adesk::Int32 marque) {
  return acutBuildList(kXTexte, cle, kXEntier32, marque, RTNONE);
}

resbuf* paireEntite(const ACHAR* cle, const resbuf& valeur) {
  const AcDbObjectId id = valeurId(&valeur);
  ACHAR handle[32] = L"";
  if (id.isNull() || !id.handle().getIntoAsciiBuffer(handle, std::size(handle))) return paireMarque(cle, kObjetNul);
  return acutBuildList(kXTexte, cle, kXHandle, handle, RTNONE);
}

// A new chain of two nodes, the key (1000) and the value. Reals become 1040, 16-bit integers 1070, 32-bit ones 1071,
// strings 1000, entities 1005 with their handle, nil 1071 with kSansValeur, and what has no other encoding (T, lists,
// points) 1071 with kObjetNul.
resbuf* paireXData(const std::wstring& cle, const resbuf& valeur) {
  const ACHAR* c = cle.c_str();
  switch (valeur.restype) {
    case RTREAL: return acutBuildList(kXTexte, c, kXReel, valeur.resval.rreal, RTNONE);
    case RTSHORT: return acutBuildList(kXTexte, c, kXEntier16, int{valeur.resval.rint}, RTNONE);
    case RTSTR: return acutBuildList(kXTexte, c, kXTexte, valeurTexte(&valeur).c_str(), RTNONE);
    case RTENAME: return paireEntite(c, valeur);
    case RTLONG: return acutBuildList(kXTexte, c, kXEntier32, valeur.resval.rlong, RTNONE);
    case RTNIL: return paireMarque(c, kSansValeur);
    default: return paireMarque(c, kObjetNul);
  }
}

// The first string node equal to the key, in any case. Kept as it is: also a value, which is then taken for the key.
resbuf* chercherCle(resbuf* rb, const std::wstring& cle) {
  while (rb && !(rb->restype == kXTexte && egalSansCasse(rb->resval.rstring, cle))) rb = rb->rbnext;
  return rb;
}

// Puts the pair's value after the key in place of the one there; the key keeps its spelling.
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
