// Creation, selection and queries of matrices, for LISP.
// Nil, set as each call begins, is the answer of every path that sets no other.
#include <algorithm>

#include "module/commande/arguments/argsLisp.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/matrices/gestionMatrices.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

constexpr std::wstring_view kParametreDecimales = L"DECIDIST";
constexpr std::size_t kLettresComparees = 7;  // of a parameter's name; kept as it is: what follows is free

// The selected matrix when it is drawn. Kept as it is: queries answer for no other one.
matriceProfil* matriceDessinee() {
  matriceProfil* matrice = collectionMatrices().matriceActive();
  return matrice && matrice->actualiserOrigine() ? matrice : nullptr;
}

bool selectionnerLigne(matriceProfil& matrice, const resbuf* cle) {
  if (estChaine(cle)) return matrice.selectionnerLigne(valeurTexte(cle));
  return estEntier(cle) && matrice.selectionnerLigne(valeurEntiere(cle));
}

bool selectionnerParIndex(const resbuf* matrice, const resbuf* ligne) {
  gestionMatrices& collection = collectionMatrices();
  return estEntier(ligne) && collection.selectionnerMatrice(valeurEntiere(matrice)) &&
         collection.matriceActive()->selectionnerLigne(valeurEntiere(ligne));
}

bool selectionnerParNom(const resbuf* matrice, const resbuf* ligne) {
  gestionMatrices& collection = collectionMatrices();
  if (!estChaine(ligne) && !estEntier(ligne)) return false;
  if (!collection.trouverMatrice(valeurTexte(matrice), false)) return false;
  // Kept as it is: the index -1 counts as no index at all and searches for an empty row name.
  if (valeurEntiere(ligne) == -1) return collection.matriceActive()->selectionnerLigne(std::wstring());
  return selectionnerLigne(*collection.matriceActive(), ligne);
}

bool estParametreDecimales(const std::wstring& nom) {
  return egalSansCasse(nom, kParametreDecimales, kLettresComparees);
}

void rendreSi(bool reussi) {
  if (reussi) acedRetT();
}

}  // namespace

// Kept as it is: the name is taken as a string whatever its type, so that what carries no text names the matrix "".
void pl_CreeMatrice() {
  ArgsLisp args;
  commencerAppel(args);
  if (args.nombre() < 1) return;
  collectionMatrices().trouverMatrice(valeurTexte(args.tete()), true);
  acedRetT();
}

void pl_DefinirLigneMatrice() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "CCCRE")) return;
  collectionMatrices().ajouterLigne(valeurTexte(args.nieme(0)), valeurTexte(args.nieme(1)), valeurTexte(args.nieme(2)),
                                    valeurReelle(args.nieme(3)), valeurEntiere(args.nieme(4)));
  acedRetT();
}

void pl_ResetMatrices() {
  collectionMatrices().vider();
  acedRetT();
}

void pl_ParamLigneProfil() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "CCCE")) return;
  gestionMatrices& collection = collectionMatrices();
  if (!collection.trouverMatrice(valeurTexte(args.nieme(0)), false) ||
      !collection.matriceActive()->selectionnerLigne(valeurTexte(args.nieme(1))) ||
      !estParametreDecimales(valeurTexte(args.nieme(2))))
    return;
  collection.matriceActive()->ligneActive()->decimales = valeurEntiere(args.nieme(3));
  acedRetT();
}

void pl_SelectMatrice() {
  ArgsLisp args;
  commencerAppel(args);
  gestionMatrices& collection = collectionMatrices();
  const resbuf* cle = args.tete();
  if (estChaine(cle)) rendreSi(collection.trouverMatrice(valeurTexte(cle), false));
  if (estEntier(cle)) rendreSi(collection.selectionnerMatrice(valeurEntiere(cle)));
}

void pl_SelectLigne() {
  ArgsLisp args;
  commencerAppel(args);
  const resbuf* premier = args.nieme(0);
  const resbuf* second = args.nieme(1);
  if (!premier) return;
  matriceProfil* active = collectionMatrices().matriceActive();
  if (!second) rendreSi(active && selectionnerLigne(*active, premier));
  else if (estEntier(premier)) rendreSi(selectionnerParIndex(premier, second));
  else if (estChaine(premier)) rendreSi(selectionnerParNom(premier, second));
}

void pl_LargeurMatrices() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "R")) return;
  const double hauteur = valeurReelle(args.tete());
  acedRetReal(std::max(2.0 * hauteur, collectionMatrices().largeurTitres(hauteur)));
}

void pl_nbmatrices() {
  acedRetNil();
  if (matriceDessinee()) acedRetInt(static_cast<int>(collectionMatrices().matrices.GetCount()));
}

void pl_nblignesmat() {
  acedRetNil();
  if (const matriceProfil* matrice = matriceDessinee()) acedRetInt(static_cast<int>(matrice->lignes.GetCount()));
}

void pl_typelignemat() {
  acedRetNil();
  const matriceProfil* matrice = matriceDessinee();
  if (const ligneMatrice* ligne = matrice ? matrice->ligneActive() : nullptr) acedRetInt(ligne->typeLigne);
}

void pl_textlignemat() {
  acedRetNil();
  const matriceProfil* matrice = matriceDessinee();
  if (const ligneMatrice* ligne = matrice ? matrice->ligneActive() : nullptr) acedRetStr(ligne->libelle.c_str());
}

}  // namespace plv
