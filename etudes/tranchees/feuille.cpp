// Names of cells and sheets, and the library's calls.
#include "etudes/tranchees/feuille.h"

#include <array>
#include <boost/locale/encoding_utf.hpp>
#include <charconv>

namespace etu {

namespace {

constexpr std::size_t kNomLePlusLong = 31;

std::string lettres(int colonne) {
  std::string texte;
  for (int c = colonne; c >= 0; c = c / 26 - 1) texte.insert(texte.begin(), static_cast<char>('A' + c % 26));
  return texte;
}

// Letters are asked for in every formula.
const std::string& colonneEnLettres(int colonne) {
  static const auto kColonnes = [] {
    std::array<std::string, 512> toutes;
    for (int c = 0; c < 512; ++c) toutes[static_cast<std::size_t>(c)] = lettres(c);
    return toutes;
  }();
  return kColonnes[static_cast<std::size_t>(colonne)];
}

lxw_format* style(lxw_workbook* classeur, const char* nombre, bool gras, bool bord) {
  lxw_format* f = workbook_add_format(classeur);
  if (nombre) format_set_num_format(f, nombre);
  if (gras) format_set_bold(f);
  if (bord) format_set_border(f, LXW_BORDER_THIN);
  return f;
}

std::wstring nomPermis(const std::wstring& nom, std::size_t longueur) {
  std::wstring permis;
  for (const wchar_t c : nom.substr(0, longueur))
    permis += std::wstring_view(L"[]:*?/\\'").find(c) == std::wstring_view::npos ? c : L'-';
  return permis;
}

}  // namespace

formats::formats(lxw_workbook* classeur)
    : titre(style(classeur, nullptr, true, false)),
      entete(style(classeur, nullptr, true, true)),
      texte(style(classeur, nullptr, false, true)),
      nombre(style(classeur, "0.000", false, true)),
      fin(style(classeur, "0.000000", false, true)),
      entier(style(classeur, "0", false, true)),
      gras(style(classeur, nullptr, true, true)),
      total(style(classeur, "0.000", true, true)),
      saisie(style(classeur, "#,##0.00", false, true)),
      somme(style(classeur, "#,##0.00", true, true)) {
  format_set_font_size(titre, 14);
  format_set_text_wrap(entete);
  format_set_align(entete, LXW_ALIGN_CENTER);
  format_set_bg_color(entete, 0xDDE6F0);
  format_set_bg_color(saisie, 0xFFF6CC);
}

std::string utf8(std::wstring_view texte) {
  return boost::locale::conv::utf_to_utf<char>(texte.data(), texte.data() + texte.size());
}

std::string cellule(int rangee, int colonne) { return colonneEnLettres(colonne) + std::to_string(rangee + 1); }
std::string celluleFixe(int rangee, int colonne) {
  return "$" + colonneEnLettres(colonne) + "$" + std::to_string(rangee + 1);
}
std::string plage(int premiere, int derniere, int colonne) {
  return cellule(premiere, colonne) + ":" + cellule(derniere, colonne);
}
std::string plageFixe(int premiere, int derniere, int colonne) {
  return celluleFixe(premiere, colonne) + ":" + celluleFixe(derniere, colonne);
}

std::string nombreDeFormule(double valeur) {
  char texte[32];
  const auto fin = std::to_chars(texte, texte + sizeof texte, valeur).ptr;
  return {texte, fin};
}

feuille::feuille(lxw_workbook* classeur, const std::wstring& nom, const formats& f) : m_formats(f) {
  std::string choisi = utf8(nomPermis(nom, kNomLePlusLong));
  for (int n = 2; workbook_get_worksheet_by_name(classeur, choisi.c_str()) != nullptr; ++n) {
    const std::wstring suite = L" (" + std::to_wstring(n) + L")";
    choisi = utf8(nomPermis(nom, kNomLePlusLong - suite.size()) + suite);
  }
  m_feuille = workbook_add_worksheet(classeur, choisi.c_str());
  m_prefixe = "'" + choisi + "'!";
}

void feuille::largeur(int premiere, int derniere, double caracteres) {
  worksheet_set_column(m_feuille, static_cast<lxw_col_t>(premiere), static_cast<lxw_col_t>(derniere), caracteres,
                       nullptr);
}

void feuille::figer(int rangee, int colonne) {
  worksheet_freeze_panes(m_feuille, static_cast<lxw_row_t>(rangee), static_cast<lxw_col_t>(colonne));
}

void feuille::texte(int rangee, int colonne, std::wstring_view valeur, lxw_format* style) {
  worksheet_write_string(m_feuille, static_cast<lxw_row_t>(rangee), static_cast<lxw_col_t>(colonne),
                         utf8(valeur).c_str(), style);
}

void feuille::nombre(int rangee, int colonne, double valeur, lxw_format* style) {
  worksheet_write_number(m_feuille, static_cast<lxw_row_t>(rangee), static_cast<lxw_col_t>(colonne), valeur, style);
}

void feuille::formule(int rangee, int colonne, const std::string& sans, double valeur, lxw_format* style) {
  worksheet_write_formula_num(m_feuille, static_cast<lxw_row_t>(rangee), static_cast<lxw_col_t>(colonne),
                              ("=" + sans).c_str(), style, valeur);
}

void feuille::formuleTexte(int rangee, int colonne, const std::string& sans, const std::string& valeur,
                           lxw_format* style) {
  worksheet_write_formula_str(m_feuille, static_cast<lxw_row_t>(rangee), static_cast<lxw_col_t>(colonne),
                              ("=" + sans).c_str(), style, valeur.c_str());
}

}  // namespace etu
