// matriceProfil: one matrix, a table of stacked rows beneath a profile, with its selected row. ligneMatrice: one row,
// a horizontal band of the table; it knows its kind only, what goes into it is computed by the front-end.
// A matrix grows downwards from its block reference; row geometry is derived from the heights, never stored.
#pragma once
#include <string>

#include "hote/adesk.h"
#include "hote/dbid.h"
#include "hote/mfc.h"

namespace plv {

// The row types that have a meaning in this module: rows that take block attributes, across or upright.
inline constexpr Adesk::Int32 kTypeAttributs = 402;
inline constexpr Adesk::Int32 kTypeAttributsVerticaux = 403;

struct ligneMatrice {
  ligneMatrice();  // with an identity of its own

  Adesk::Int32 decimales = 2;
  Adesk::Int32 typeLigne = 0;
  std::wstring libelle;       // label in the title column
  double hauteurLigne = 1.5;  // multiples of the matrix's echelle
  std::wstring infosLigne;    // attribute tags between |, blanks and tabs
  std::wstring nomLigne;      // looked up without regard to case
  Adesk::UInt32 idLigne;      // never 0xFFFFFFFF
};

struct matriceProfil {
  matriceProfil();
  ~matriceProfil() { viderLignes(); }
  matriceProfil(const matriceProfil&) = delete;
  matriceProfil& operator=(const matriceProfil&) = delete;

  Adesk::Int32 ligneCourante = -1;
  double hautCourant = 0.0;  // top and bottom of the selected row in row units, below the matrix's top: 0 or negative
  double basCourant = 0.0;
  double origineX = 0.0;  // of the block reference, drawing units; see actualiserOrigine
  double origineY = 0.0;
  AcDbObjectId idBloc;         // the reference that carries the title column
  AcDbObjectIdArray idTraits;  // the horizontal rules, from the top down
  AcDbObjectId styleTexte;     // the working database's current style when the matrix was made
  std::wstring nomMatrice;
  CArray<ligneMatrice*, ligneMatrice*> lignes;  // owned, from the top down
  double echelle = 1.0;                         // drawing units of one row unit; the text height once drawn
  AcDbObjectId idGroupe;                        // every entity of the matrix

  // A new row at the bottom, with default values.
  ligneMatrice& nouvelleLigne();
  void viderLignes();

  // Nulls the ids that belong to a drawing.
  void oublierDessin(const AcDbDatabase* dessin);
  // Reads the block reference's position again. False, with the origin as it was, when it doesn't open.
  bool actualiserOrigine();
  // Selects a row; false and no row selected when there is none of that index or name.
  bool selectionnerLigne(Adesk::Int32 index);
  bool selectionnerLigne(const std::wstring& nom);
  // The selected row, or null.
  ligneMatrice* ligneActive() const;
  // The widest label at a text height, in drawing units; 0 without rows.
  double largeurTitre(double hauteur) const;
  // The sum of the row heights times the unit.
  double hauteurTotale(double unite) const;
  // Writes a slope label, "Dh=30.00 Di=30.04 P=5.00 %", along the diagonal of the selected row from x, a
  // horizontal length dh further, and ticks at both ends; the diagonal isn't drawn. x, dh and di are metres,
  // the slope is a ratio: at 0 or above the diagonal falls. False without a selected row.
  bool coterPente(double x, double dh, double di, double pente);
};

}  // namespace plv
