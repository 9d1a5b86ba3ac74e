// The cells of a profile's sheet.
// Here the class behind the last one takes the last one's width, whereas the dialog gives it none.
#include "module/metres/feuilleProfil.h"

#include <algorithm>
#include <boost/locale/encoding_utf.hpp>
#include <cmath>

#include "module/metres/classeProfondeur.h"

namespace plv {

namespace {

constexpr lxw_row_t kRangeeEntetes = 4;

std::string utf8(const std::wstring& texte) { return boost::locale::conv::utf_to_utf<char>(texte); }

double largeurDeClasse(Adesk::Int32 numero) {
  const classesProfondeur& liste = listeClasses();
  const auto nombre = static_cast<std::ptrdiff_t>(liste.size());
  const std::ptrdiff_t index = numero < nombre ? numero - 1 : nombre - 1;
  return index >= 0 && index < nombre ? liste[static_cast<std::size_t>(index)].largeur : 0.0;
}

// By title; then an element without values, and the first values: numbers before texts.
bool avant(const elementFixeMesure& a, const elementFixeMesure& b) {
  if (a.libelle != b.libelle) return a.libelle < b.libelle;
  if (a.valeurs.empty() || b.valeurs.empty()) return a.valeurs.empty() && !b.valeurs.empty();
  const valeurElement &x = a.valeurs.front(), &y = b.valeurs.front();
  if (x.estNombre != y.estNombre) return x.estNombre > y.estNombre;
  return x.estNombre ? x.nombre < y.nombre : x.texte < y.texte;
}

}  // namespace

std::string nomCellule(lxw_row_t rangee, lxw_col_t colonne) {
  std::string lettres;
  for (int c = colonne; c >= 0; c = c / 26 - 1) lettres.insert(lettres.begin(), static_cast<char>('A' + c % 26));
  return lettres + std::to_string(rangee + 1);
}

void feuilleProfil::texte(lxw_row_t rangee, lxw_col_t colonne, const std::wstring& valeur, lxw_format* format) {
  worksheet_write_string(feuille_, rangee, colonne, utf8(valeur).c_str(), format);
}
void feuilleProfil::nombre(lxw_row_t rangee, lxw_col_t colonne, double valeur, lxw_format* format) {
  worksheet_write_number(feuille_, rangee, colonne, valeur, format);
}

void feuilleProfil::ecrire() {
  worksheet_set_column(feuille_, 1, 3, 10, nullptr);
  worksheet_set_column(feuille_, 4, 7, 13.5, nullptr);
  worksheet_set_column(feuille_, 8, 10, 12, nullptr);
  tete();
  // Each line writes the table of elements, at the same place unless its last section is of another width.
  for (const ligneTroncons& ligne : profil_.lignes) elements(static_cast<lxw_col_t>(troncons(ligne) + 2));
}

void feuilleProfil::tete() {
  texte(1, 1, L"Profil");
  texte(1, 2, profil_.numero.kACharPtr(), f_.titre);
  texte(2, 2, L"D.Cumulee");
  nombre(2, 3, profil_.dcumDeb, f_.titre);
  lxw_col_t colonne = 1;
  for (const wchar_t* entete : {L"Debut", L"Fin", L"Longueur", L"Classe profondeur", L"Profondeur moyenne",
                                L"Surface trancon", L"Largeur trancon", L"Volume"})
    texte(kRangeeEntetes, colonne++, entete, f_.entete);
}

// Nothing guards the division, but a sheet has no infinite or undefined numbers: written as one, it would make the file
// unreadable. There the cell divides by itself, and shows the error that it gives.
void feuilleProfil::moyenne(lxw_row_t rangee, double valeur, lxw_format* format) {
  if (std::isfinite(valeur)) return nombre(rangee, 5, valeur, format);
  const std::string division = "=" + nomCellule(rangee, 6) + "/" + nomCellule(rangee, 3);
  worksheet_write_formula_str(feuille_, rangee, 5, division.c_str(), format, "#DIV/0!");
}

lxw_col_t feuilleProfil::troncons(const ligneTroncons& ligne) {
  lxw_col_t libre = 1;
  for (const poigneeTroncon& t : ligne.troncons) libre = troncon(*t, t == ligne.troncons.back());
  return libre;
}

lxw_col_t feuilleProfil::troncon(const TranconProfilEnlong& t, bool dernier) {
  lxw_format* const n = dernier ? f_.nombreBas : f_.nombre;
  const double debut = t.debut(), fin = t.fin();
  const Adesk::Int32 classe = t.classe();
  const lxw_row_t r = rangee_++;
  nombre(r, 1, debut, n);
  nombre(r, 2, fin, n);
  // With its result: readers that don't calculate on opening would show 0.
  const std::string difference = "=" + nomCellule(r, 2) + "-" + nomCellule(r, 1);
  worksheet_write_formula_num(feuille_, r, 3, difference.c_str(), n, fin - debut);
  texte(r, 4, libelleClasse(listeClasses(), classe), dernier ? f_.texteBas : f_.texte);
  moyenne(r, t.surface / (fin - debut), n);
  nombre(r, 6, t.surface, n);
  if (classe == 0) return 7;
  const double largeur = largeurDeClasse(classe);
  nombre(r, 7, largeur, n);
  nombre(r, 8, t.surface * largeur, n);
  return 9;
}

void feuilleProfil::elements(lxw_col_t colonne) {
  auto& liste = profil_.elements;
  std::stable_sort(liste.begin(), liste.end(), avant);
  lxw_row_t r = kRangeeEntetes;
  for (auto debut = liste.begin(); debut != liste.end();) {
    const auto fin = std::find_if(debut, liste.end(), [&](const elementFixeMesure& e) { return e.id != debut->id; });
    texte(r++, colonne, debut->libelle, f_.titre);
    for (std::size_t j = 0; j < debut->valeurs.size(); ++j)
      texte(r, static_cast<lxw_col_t>(colonne + j), debut->valeurs[j].libelle, f_.entete);
    for (; debut != fin; ++debut) element(*debut, ++r, colonne, debut + 1 == fin);
    r += 3;
  }
}

void feuilleProfil::element(const elementFixeMesure& e, lxw_row_t rangee, lxw_col_t colonne, bool dernier) {
  for (const valeurElement& valeur : e.valeurs) {
    if (valeur.estNombre) nombre(rangee, colonne++, valeur.nombre, dernier ? f_.nombreBas : f_.nombre);
    else texte(rangee, colonne++, valeur.texte, dernier ? f_.texteBas : f_.texte);
  }
}

}  // namespace plv
