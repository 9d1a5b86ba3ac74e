// Matrix definition files: text files that declare all matrices of a kind of profile, one row to a line.
//
// A line holds, between blanks and tabs: the matrix's name, a filler word, the height, the type, and up to
// the end of the line the label. "{...}" at the start of any of these fields is the row's free text; the last
// one counts. Lines of another form are passed over, so comments need no syntax. The text is in the ANSI code
// page or UTF-8. Numbers take a decimal point between digits and, after one, an exponent with a capital E:
// 12, -3, 2.5, 1.5E3. Kept as it is: 5. .5 and 1E3 are refused.
#pragma once
#include <optional>
#include <string>

#include "module/matrices/gestionMatrices.h"

namespace plv {

struct definitionLigne {
  std::wstring matrice;
  double hauteur = 0.0;   // multiples of the matrix's echelle
  Adesk::Int32 type = 0;  // cut at the decimal point
  std::wstring libelle;
  std::wstring infos;
};

// Nothing for a line of another form. The line comes without its end.
std::optional<definitionLigne> analyserLigne(std::wstring_view ligne);
// Replaces the collection by what the file declares; its rows are named "1", "2" and so on through the whole
// file. False when no line declares a row or the file doesn't open: the collection is empty then.
bool lireFichierMatrices(const std::wstring& chemin, gestionMatrices& collection);

}  // namespace plv
