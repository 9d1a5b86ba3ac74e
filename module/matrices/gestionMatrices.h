// gestionMatrices: the one collection of matrices in the process, and the selection that every cell writer
// works on. It holds what a definition declared, and once a profile is chosen the matrices of that profile as
// they were drawn.
#pragma once
#include <string>

#include "module/matrices/matriceProfil.h"

namespace plv {

class gestionMatrices {
 public:
  gestionMatrices() = default;
  ~gestionMatrices() { detruireMatrices(); }
  gestionMatrices(const gestionMatrices&) = delete;
  gestionMatrices& operator=(const gestionMatrices&) = delete;

  CArray<matriceProfil*, matriceProfil*> matrices;  // owned, in drawing order
  Adesk::Int32 matriceCourante = -1;
  double echelle = 1.0;   // kept for the record: nothing reads it
  AcDbObjectId idProfil;  // the profile's block reference, once matrices are drawn or loaded

  // Selects the matrix of that name, in any case; on demand makes it when it is missing. False, with no
  // matrix selected, otherwise.
  bool trouverMatrice(const std::wstring& nom, bool creer);
  // Selects by index, and refreshes the matrix's origin. False, with no matrix selected, for an index out of
  // range.
  bool selectionnerMatrice(Adesk::Int32 index);
  // Appends a row to the matrix of that name, which is made when it is missing and becomes the selected one.
  void ajouterLigne(const std::wstring& matrice, const std::wstring& nom, const std::wstring& libelle, double hauteur,
                    Adesk::Int32 type, const std::wstring& infos = {});
  // Empties the collection; nothing in the drawing changes.
  void vider();
  // Destroys the matrices and leaves the selection alone.
  void detruireMatrices();
  // Lets go of everything in a drawing that is about to close. The definitions stay, as those of undrawn
  // matrices.
  void oublierDessin(const AcDbDatabase* dessin);
  // The selected matrix, or null.
  matriceProfil* matriceActive() const;
  // The widest label of all matrices at a text height, at least 0, in drawing units.
  double largeurTitres(double hauteur) const;
};

// The collection of the process.
gestionMatrices& collectionMatrices();

}  // namespace plv
