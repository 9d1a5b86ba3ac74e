// gestionMatrices: the collection of matrices and its selection.
// Every selecting call clears the selection first, also when it fails.
#include "module/matrices/gestionMatrices.h"

#include <algorithm>
#include <memory>

#include "module/support/base/lettres.h"

namespace plv {

gestionMatrices& collectionMatrices() {
  static gestionMatrices collection;
  return collection;
}

bool gestionMatrices::trouverMatrice(const std::wstring& nom, bool creer) {
  matriceCourante = -1;
  std::ptrdiff_t i = 0;
  while (i < matrices.GetCount() && !egalSansCasse(matrices[i]->nomMatrice, nom)) ++i;
  if (i == matrices.GetCount()) {
    if (!creer) return false;
    matrices.Add(std::make_unique<matriceProfil>().release());
    matrices[i]->nomMatrice = nom;
  }
  matriceCourante = static_cast<Adesk::Int32>(i);
  return true;
}

bool gestionMatrices::selectionnerMatrice(Adesk::Int32 index) {
  matriceCourante = index >= 0 && index < matrices.GetCount() ? index : -1;
  if (matriceProfil* active = matriceActive()) active->actualiserOrigine();
  return matriceCourante >= 0;
}

void gestionMatrices::ajouterLigne(const std::wstring& matrice, const std::wstring& nom, const std::wstring& libelle,
                                   double hauteur, Adesk::Int32 type, const std::wstring& infos) {
  trouverMatrice(matrice, true);
  ligneMatrice& ligne = matriceActive()->nouvelleLigne();
  ligne.nomLigne = nom;
  ligne.libelle = libelle;
  ligne.hauteurLigne = hauteur;
  ligne.typeLigne = type;
  ligne.infosLigne = infos;
}

void gestionMatrices::vider() {
  matriceCourante = -1;
  echelle = 1.0;
  idProfil.setNull();
  detruireMatrices();
}

void gestionMatrices::detruireMatrices() {
  for (std::ptrdiff_t i = 0; i < matrices.GetCount(); ++i) delete matrices[i];
  matrices.RemoveAll();
}

void gestionMatrices::oublierDessin(const AcDbDatabase* dessin) {
  if (!idProfil.isNull() && idProfil.database() == dessin) idProfil.setNull();
  for (std::ptrdiff_t i = 0; i < matrices.GetCount(); ++i) matrices[i]->oublierDessin(dessin);
}

matriceProfil* gestionMatrices::matriceActive() const {
  return matriceCourante >= 0 && matriceCourante < matrices.GetCount() ? matrices[matriceCourante] : nullptr;
}

double gestionMatrices::largeurTitres(double hauteur) const {
  double largeur = 0.0;
  for (std::ptrdiff_t i = 0; i < matrices.GetCount(); ++i)
    largeur = std::max(largeur, matrices[i]->largeurTitre(hauteur));
  return largeur;
}

}  // namespace plv
