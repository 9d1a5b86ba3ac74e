// pl_InfosTn, pl_PointTn and pl_add_xdata: the natural ground of a profile, read and lengthened by LISP.
// Points come back as (distance, altitude, 0).
#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/fonctionsProfil.h"
#include "module/profil/profilLong.h"

namespace plv {

namespace {

constexpr Adesk::UInt32 kNoeudsMax = 2'000'000'019;
constexpr int kDebutXData = -3;

// What is wrong with the arguments; null when they are two numbers and a string. Kept as they
// are: the third argument is called the second one, as users of the front-end know these messages.
const wchar_t* fauteArguments(const ArgsLisp& args) {
  const Adesk::UInt32 n = args.nombre();
  if (n == 0) return L"pas d'arguments !";
  if (!estNombre(args.nieme(0))) return L"1er argument non numerique !";
  if (n == 1) return L"1 seul argument a ete fourni !";
  if (!estNombre(args.nieme(1))) return L"2eme argument non numerique !";
  if (n == 2) return L"2  arguments seulement ont ete fournis !";
  if (!estChaine(args.nieme(2))) return L"2eme argument n'est pas une chaine !";
  return nullptr;
}

// Appends the two numbers to the entity's data, opening them when it has none.
bool ajouterCouple(const ads_name nom, double premier, double second) {
  const listeRb applications(acutBuildList(kXApplication, kApplicationTn, RTNONE));
  ArgsLisp donnees(acdbEntGetX(nom, applications.tete()));
  if (donnees.nombre() >= kNoeudsMax) return false;
  if (!chercheCode(donnees.tete(), kXApplication)) {
    donnees.ajouter(acutNewRb(kDebutXData));
    donnees.ajouter(acutBuildList(kXApplication, kApplicationTn, RTNONE));
  }
  donnees.ajouter(acutBuildList(kXReel, premier, kXReel, second, RTNONE));
  return acdbEntMod(donnees.tete()) == RTNORM;
}

}  // namespace

void pl_InfosTn() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "N")) return;
  profilLong profil;
  profil.lireNom(args.tete()->resval.rlname);
  if (profil.distTn.empty()) return;
  const ads_point infos = {static_cast<double>(profil.distTn.size()), profil.distTn.back(), 0.0};
  acedRetPoint(infos);
}

void pl_PointTn() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "NE")) return;
  profilLong profil;
  if (!profil.lireNom(args.tete()->resval.rlname)) return;
  const Adesk::Int32 index = valeurEntiere(args.nieme(1));
  if (index < 0 || static_cast<std::size_t>(index) >= profil.distTn.size()) return;
  const auto i = static_cast<std::size_t>(index);
  const ads_point point = {profil.distTn[i], profil.altTn[i], 0.0};
  acedRetPoint(point);
}

// One more point after those of the entity's "KELMONT_PLV2".
void pl_add_xdata() {
  ArgsLisp args;
  commencerAppel(args);
  ads_name nom;
  const wchar_t* faute = fauteArguments(args);
  if (!faute && acdbHandEnt(valeurTexte(args.nieme(2)).c_str(), nom) != RTNORM)
    faute = L"2eme argument n'est pas un vrai handle !";
  if (faute) acutPrintf(L"\nErreur dans appel a add_plxdata: %ls", faute);
  else if (ajouterCouple(nom, valeurReelle(args.nieme(0)), valeurReelle(args.nieme(1)))) acedRetInt(1);
}

}  // namespace plv
