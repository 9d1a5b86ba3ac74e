// The sheet of one profile in the workbook: its columns, and its writing. Rows and columns are the library's, counted
// from 0. Depth sections stand one a row under their headers, fixed elements to their right, a table for each kind.
#pragma once
#include <xlsxwriter.h>

#include <array>

#include "module/metres/TranconProfilEnlong.h"

namespace plv {

// The columns of the depth sections, by what stands in them.
enum colonneFeuille : lxw_col_t {
  kDebut = 1,
  kFin,
  kLongueur,
  kClasse,
  kProfondeurMoyenne,
  kSurface,
  kLargeur,
  kVolume,
  kApresTroncons  // the first one that they leave free
};

struct enteteColonne {
  colonneFeuille colonne;
  const wchar_t* titre;
  double largeur;  // in characters
};

// In the order of the columns, from the first one on. Kept as they are: the titles have no accents, readers find
// columns by them.
inline constexpr std::array<enteteColonne, 8> kEntetes = {{{kDebut, L"Debut", 10},
                                                           {kFin, L"Fin", 10},
                                                           {kLongueur, L"Longueur", 10},
                                                           {kClasse, L"Classe profondeur", 13.5},
                                                           {kProfondeurMoyenne, L"Profondeur moyenne", 13.5},
                                                           {kSurface, L"Surface trancon", 13.5},
                                                           {kLargeur, L"Largeur trancon", 13.5},
                                                           {kVolume, L"Volume", 12}}};
// Empty ones before the tables of fixed elements, as wide as the last column.
inline constexpr lxw_col_t kColonnesDeSeparation = 2;

inline constexpr lxw_row_t kRangeeEntetes = 4;

struct formatsClasseur {
  lxw_format *titre, *entete, *nombre, *texte, *nombreBas, *texteBas;
};

class feuilleProfil {
 public:
  feuilleProfil(lxw_worksheet* feuille, const formatsClasseur& formats, InfoProfilEnLong& profil)
      : m_feuille(feuille), m_formats(formats), m_profil(profil) {}
  // The profile's elements are sorted on the way.
  void ecrire();

 private:
  void tete();
  // The first column that the last row of the line leaves free.
  lxw_col_t troncons(const ligneTroncons& ligne);
  void largeurs();
  void longueur(lxw_row_t rangee, double valeur, lxw_format* format);
  void profondeurMoyenne(lxw_row_t rangee, double valeur, lxw_format* format);
  lxw_col_t troncon(const TranconProfilEnlong& t, bool dernier);
  void elements(lxw_col_t colonne);
  void element(const elementFixeMesure& e, lxw_row_t rangee, lxw_col_t colonne, bool dernier);
  void texte(lxw_row_t rangee, lxw_col_t colonne, const std::wstring& valeur, lxw_format* format = nullptr);
  void nombre(lxw_row_t rangee, lxw_col_t colonne, double valeur, lxw_format* format = nullptr);

  lxw_worksheet* const m_feuille;
  const formatsClasseur& m_formats;
  InfoProfilEnLong& m_profil;
  lxw_row_t m_rangee = kRangeeEntetes + 1;
};

// "B6" for row 5, column 1.
std::string nomCellule(lxw_row_t rangee, lxw_col_t colonne);

}  // namespace plv
