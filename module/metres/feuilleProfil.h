// The sheet of one profile in the workbook. Rows and columns are the library's, counted from 0.
// Sections stand from row 5 on in columns 1 to 8; fixed elements stand to their right, a table for each kind.
#pragma once
#include <xlsxwriter.h>

#include "module/metres/TranconProfilEnlong.h"

namespace plv {

struct formatsClasseur {
  lxw_format *titre, *entete, *nombre, *texte, *nombreBas, *texteBas;
};

class feuilleProfil {
 public:
  feuilleProfil(lxw_worksheet* feuille, const formatsClasseur& formats, InfoProfilEnLong& profil)
      : feuille_(feuille), f_(formats), profil_(profil) {}
  // The profile's elements are sorted on the way.
  void ecrire();

 private:
  void tete();
  // The first column that the last row of the line leaves free.
  lxw_col_t troncons(const ligneTroncons& ligne);
  void moyenne(lxw_row_t rangee, double valeur, lxw_format* format);
  lxw_col_t troncon(const TranconProfilEnlong& t, bool dernier);
  void elements(lxw_col_t colonne);
  void element(const elementFixeMesure& e, lxw_row_t rangee, lxw_col_t colonne, bool dernier);
  void texte(lxw_row_t rangee, lxw_col_t colonne, const std::wstring& valeur, lxw_format* format = nullptr);
  void nombre(lxw_row_t rangee, lxw_col_t colonne, double valeur, lxw_format* format = nullptr);

  lxw_worksheet* const feuille_;
  const formatsClasseur& f_;
  InfoProfilEnLong& profil_;
  lxw_row_t rangee_ = 5;
};

// "B6" for row 5, column 1.
std::string nomCellule(lxw_row_t rangee, lxw_col_t colonne);

}  // namespace plv
