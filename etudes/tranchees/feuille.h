// A sheet of the workbook: cells by row and column from 0, written row by row from the top, every formula with its value, so that readers which
// don't reckon show it too.
#pragma once
#include <xlsxwriter.h>

#include <string>
#include <string_view>

namespace etu {

struct formats {
  explicit formats(lxw_workbook* classeur);
  lxw_format *titre, *entete, *texte, *nombre, *fin, *entier, *gras, *total, *saisie, *somme;
};

std::string utf8(std::wstring_view texte);

// "C12", "$C$12".
std::string cellule(int rangee, int colonne);
std::string celluleFixe(int rangee, int colonne);
// "C3:C12" of one column.
std::string plage(int premiere, int derniere, int colonne);
std::string plageFixe(int premiere, int derniere, int colonne);
// The shortest text from which the number is read again.
std::string nombreDeFormule(double valeur);

class feuille {
 public:
  // The name is made one that sheets may have, and that no other sheet of the workbook has.
  feuille(lxw_workbook* classeur, const std::wstring& nom, const formats& f);

  const formats& styles() const { return m_formats; }
  // The name with the mark that ends it in a formula.
  const std::string& prefixe() const { return m_prefixe; }
  std::string ailleurs(int rangee, int colonne) const { return m_prefixe + celluleFixe(rangee, colonne); }

  void largeur(int premiere, int derniere, double caracteres);
  // Rows above and columns to the left of this cell stay in view.
  void figer(int rangee, int colonne);
  void texte(int rangee, int colonne, std::wstring_view valeur, lxw_format* style = nullptr);
  void nombre(int rangee, int colonne, double valeur, lxw_format* style = nullptr);
  void formule(int rangee, int colonne, const std::string& sans, double valeur, lxw_format* style = nullptr);
  void formuleTexte(int rangee, int colonne, const std::string& sans, const std::string& valeur,
                    lxw_format* style = nullptr);

 private:
  lxw_worksheet* m_feuille;
  const formats& m_formats;
  std::string m_prefixe;
};

}  // namespace etu
