// ligneMatrice: one row of a matrix, a horizontal band of the table beneath a profile.
// A row knows its kind only; what goes into it is computed by the front-end.
#pragma once
#include <string>

#include "hote/adesk.h"

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

}  // namespace plv
