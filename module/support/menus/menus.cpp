// Dynamic menus: their set, the menu of the chosen profile, and the functions that LISP calls.
// The macros call the front-end; none of them names a function of this module.
#include "module/support/menus/menus.h"

#include <set>

#include "module/commande/arguments/argsLisp.h"
#include "module/matrices/stockageMatrices.h"
#include "module/profil/profilLong.h"
#include "module/support/base/lettres.h"
#include "module/support/menus/menusAutomatisation.h"

namespace plv {

namespace {

const entreeMenu kSeparateur{};
const entreeMenu kEntreesFixes[] = {
    {L"Cotation Automatique", L"(CotAutoKavel) "},
    kSeparateur,
    {L"Associer Projet", L"assocprjKavel "},
    {L"Associer Block", L"pl_efixKAVEL "},
    kSeparateur,
    {L"Valider le Projet", L"transfererProjet "},
    {L"Equipements, pentes et directions ==> Tracé en plan", L"PlKavelVersPlan "},
};

// Names of the menus made at run time, in code order: case counts here, though not in the host.
std::set<std::wstring>& menusDynamiques() {
  static std::set<std::wstring> menus;
  return menus;
}

std::wstring& menuProfil() {
  static std::wstring nom;
  return nom;
}

void ajouterEntree(const std::wstring& menu, const entreeMenu& entree) {
  if (entree.libelle.empty() && entree.macro.empty()) ajouterSeparateur(menu);
  else ajouterOption(menu, entree.libelle, entree.macro);
}

// The menus of the set are looked for in the group in use: those of another group go before the group changes, as nothing
// would find them afterwards.
bool creerDansGroupe(const std::wstring& groupe, const std::wstring& nom) {
  if (!egalSansCasse(groupe, groupeMenus())) retirerMenusDynamiques();
  return creerMenu(groupe, nom);
}

void rendreSi(bool reussi) {
  if (reussi) acedRetT();
}

}  // namespace

std::wstring& groupeMenus() {
  static std::wstring nom = kGroupeMenus;
  return nom;
}

void amorcerMenusDynamiques() { menusDynamiques(); }

std::vector<entreeMenu> entreesMenuProfil(const gestionMatrices& collection) {
  std::vector<entreeMenu> entrees;
  for (std::ptrdiff_t m = 0; m < collection.matrices.GetCount(); ++m) {
    const matriceProfil& matrice = *collection.matrices[m];
    for (std::ptrdiff_t l = 0; l < matrice.lignes.GetCount(); ++l)
      entrees.push_back(
          {matrice.lignes[l]->libelle, L"(PL-CPLM \"" + matrice.nomMatrice + L"\" " + std::to_wstring(l + 1) + L") "});
    entrees.push_back(kSeparateur);
  }
  entrees.insert(entrees.end(), std::begin(kEntreesFixes), std::end(kEntreesFixes));
  return entrees;
}

void placerMenuProfil(const std::wstring& groupe, const std::wstring& genre) {
  const std::wstring nom = L"Profil " + genre;
  retirerMenu(menuProfil());
  menusDynamiques().erase(menuProfil());
  menuProfil() = nom;
  const gestionMatrices& collection = collectionMatrices();
  if (collection.matrices.IsEmpty()) return;
  creerDansGroupe(groupe, nom);
  menusDynamiques().insert(nom);
  for (const entreeMenu& entree : entreesMenuProfil(collection)) ajouterEntree(nom, entree);
}

void retirerMenusDynamiques() {
  for (const std::wstring& nom : menusDynamiques()) retirerMenu(nom);
  menusDynamiques().clear();
}

void pl_CreeMenu() {
  ArgsLisp args;
  commencerAppel(args);
  if (args.nombre() != 2 || !conforme(args, "CC")) return;
  const std::wstring nom = valeurTexte(args.nieme(1));
  if (!creerDansGroupe(valeurTexte(args.nieme(0)), nom)) return;
  menusDynamiques().insert(nom);
  acedRetT();
}

void pl_AddSep() {
  ArgsLisp args;
  commencerAppel(args);
  rendreSi(conforme(args, "C") && ajouterSeparateur(valeurTexte(args.tete())));
}

void pl_AddOptionMenu() {
  ArgsLisp args;
  commencerAppel(args);
  rendreSi(args.nombre() == 3 && conforme(args, "CCC") &&
           ajouterOption(valeurTexte(args.nieme(0)), valeurTexte(args.nieme(1)), valeurTexte(args.nieme(2))));
}

void pl_RemoveMenu() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "C") || !retirerMenu(valeurTexte(args.tete()))) return;
  menusDynamiques().erase(valeurTexte(args.tete()));
  acedRetT();
}

void pl_PlacerMenusKavel() {
  ArgsLisp args;
  commencerAppel(args);
  if (conforme(args, "CC")) placerMenuProfil(valeurTexte(args.nieme(0)), valeurTexte(args.nieme(1)));
}

void pl_RemoveDynMnus() {
  acedRetNil();
  retirerMenusDynamiques();
}

// Brings a drawn profile back: its matrices fill the collection, and its menu is built. Kept as it is: the entity isn't
// tested, and one that is no profile empties the collection and takes the old menu away.
void pl_ChoixProfil() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "N")) return;
  AcString numero;
  if (!lireAttributParNom(args.tete()->resval.rlname, L"NUMPL", numero)) numero = L"Profil";
  chargerMatrices(valeurId(args.tete()), collectionMatrices());
  placerMenuProfil(kGroupeMenus, numero.kACharPtr());
}

}  // namespace plv
