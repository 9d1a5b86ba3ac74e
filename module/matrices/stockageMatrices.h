// How drawn matrices are kept in the drawing, so that a profile finds them again.
//
// "VARDANE_MATRICES", on the profile's block reference: 90 the mark 1425781, 90 the number of matrices, then
// 330 the block reference of each. "INFO_MATRICE", on a matrix's block reference: 300 name, 40 echelle, 330
// text style, 90 number of rows; for each row 90 its index, 91 idLigne, 300 name, 40 height, 90 decimals, 90
// type, 300 label, 300 free text; then 90 the number of rules, 330 each of them, 330 the group. A null id
// stands as 90 with -9999999.
#pragma once
#include "module/matrices/gestionMatrices.h"

namespace plv {

// Writes the list of matrices on the profile of the collection, and one matrix on its block reference.
void ecrireListeMatrices(const gestionMatrices& collection);
void ecrireInfosMatrice(const matriceProfil& matrice);
// Fills a fresh matrix whose idBloc is set. False for a missing or damaged record, and for one without rows.
bool lireInfosMatrice(matriceProfil& matrice);
// Fills the collection with the matrices drawn beneath a profile; empty when it has none. A matrix that can't
// be read is left out. Kept as it is: the index of the selected matrix isn't
// touched.
void chargerMatrices(AcDbObjectId profil, gestionMatrices& collection);

}  // namespace plv
