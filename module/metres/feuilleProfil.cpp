// The cells of a profile's sheet.
// Kept as it is: what lies deeper than the last class has that class's width here, and none in the dialog.
#include "module/metres/feuilleProfil.h"

#include <algorithm>
#include <boost/locale/encoding_utf.hpp>
#include <cmath>

#include "module/metres/classeProfondeur.h"

namespace plv {

namespace {

// The heading of the sheet: a label, and its value one column further.
struct placeTitre {
  lxw_row_t rangee;
  lxw_col_t colonne;
};
constexpr placeTitre kPlaceNumero = {1, kDebut}, kPlaceDistanceCumulee = {2, kFin};

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
  worksheet_write_string(m_feuille, rangee, colonne, utf8(valeur).c_str(), format);
}
void feuilleProfil::nombre(lxw_row_t rangee, lxw_col_t colonne, double valeur, lxw_format* format) {
  worksheet_write_number(m_feuille, rangee, colonne, valeur, format);
}

void feuilleProfil::ecrire() {
  largeurs();
  tete();
  // Each line writes the table of elements, at the same place unless its last depth section takes fewer columns.
  for (const ligneTroncons& ligne : m_profil.lignes)
    elements(static_cast<lxw_col_t>(troncons(ligne) + kColonnesDeSeparation));
}

// One record for neighbours of one width, as the library's readers have them.
void feuilleProfil::largeurs() {
  for (auto premiere = kEntetes.begin(); premiere != kEntetes.end();) {
    const auto suivante =
        std::find_if(premiere, kEntetes.end(), [&](const enteteColonne& e) { return e.largeur != premiere->largeur; });
    const lxw_col_t separation = suivante == kEntetes.end() ? kColonnesDeSeparation : 0;
    worksheet_set_column(m_feuille, premiere->colonne, static_cast<lxw_col_t>((suivante - 1)->colonne + separation),
                         premiere->largeur, nullptr);
    premiere = suivante;
  }
}

void feuilleProfil::tete() {
  texte(kPlaceNumero.rangee, kPlaceNumero.colonne, L"Profil");
  texte(kPlaceNumero.rangee, kPlaceNumero.colonne + 1, m_profil.numero.kACharPtr(), m_formats.titre);
  texte(kPlaceDistanceCumulee.rangee, kPlaceDistanceCumulee.colonne, L"D.Cumulee");
  nombre(kPlaceDistanceCumulee.rangee, kPlaceDistanceCumulee.colonne + 1, m_profil.dcumDeb, m_formats.titre);
  for (const enteteColonne& e : kEntetes) texte(kRangeeEntetes, e.colonne, e.titre, m_formats.entete);
}

// With its result: readers that don't calculate on opening would show 0.
void feuilleProfil::longueur(lxw_row_t rangee, double valeur, lxw_format* format) {
  const std::string difference = "=" + nomCellule(rangee, kFin) + "-" + nomCellule(rangee, kDebut);
  worksheet_write_formula_num(m_feuille, rangee, kLongueur, difference.c_str(), format, valeur);
}

// Kept as it is: nothing guards the division. But a sheet has no infinite or undefined numbers: written as one, it
// would make the file unreadable. There the cell divides by itself, and shows the error that it gives.
void feuilleProfil::profondeurMoyenne(lxw_row_t rangee, double valeur, lxw_format* format) {
  if (std::isfinite(valeur)) return nombre(rangee, kProfondeurMoyenne, valeur, format);
  const std::string division = "=" + nomCellule(rangee, kSurface) + "/" + nomCellule(rangee, kLongueur);
  worksheet_write_formula_str(m_feuille, rangee, kProfondeurMoyenne, division.c_str(), format, "#DIV/0!");
}

lxw_col_t feuilleProfil::troncons(const ligneTroncons& ligne) {
  lxw_col_t libre = kDebut;
  for (const poigneeTroncon& t : ligne.troncons) libre = troncon(*t, t == ligne.troncons.back());
  return libre;
}

// What isn't buried has neither width nor volume, and leaves their columns free.
lxw_col_t feuilleProfil::troncon(const TranconProfilEnlong& t, bool dernier) {
  lxw_format* const n = dernier ? m_formats.nombreBas : m_formats.nombre;
  const double debut = t.debut().valeur, fin = t.fin().valeur;
  const Adesk::Int32 classe = t.classe();
  const lxw_row_t r = m_rangee++;
  nombre(r, kDebut, debut, n);
  nombre(r, kFin, fin, n);
  longueur(r, fin - debut, n);
  texte(r, kClasse, libelleClasse(listeClasses(), classe), dernier ? m_formats.texteBas : m_formats.texte);
  profondeurMoyenne(r, t.surface / (fin - debut), n);
  nombre(r, kSurface, t.surface, n);
  if (classe == 0) return kLargeur;
  const double largeur = largeurDeClasse(classe);
  nombre(r, kLargeur, largeur, n);
  nombre(r, kVolume, t.surface * largeur, n);
  return kApresTroncons;
}

void feuilleProfil::elements(lxw_col_t colonne) {
  auto& liste = m_profil.elements;
  std::stable_sort(liste.begin(), liste.end(), avant);
  lxw_row_t r = kRangeeEntetes;
  for (auto debut = liste.begin(); debut != liste.end();) {
    const auto fin = std::find_if(debut, liste.end(), [&](const elementFixeMesure& e) { return e.id != debut->id; });
    texte(r++, colonne, debut->libelle, m_formats.titre);
    for (std::size_t j = 0; j < debut->valeurs.size(); ++j)
      texte(r, static_cast<lxw_col_t>(colonne + j), debut->valeurs[j].libelle, m_formats.entete);
    for (; debut != fin; ++debut) element(*debut, ++r, colonne, debut + 1 == fin);
    r += 3;
  }
}

void feuilleProfil::element(const elementFixeMesure& e, lxw_row_t rangee, lxw_col_t colonne, bool dernier) {
  for (const valeurElement& valeur : e.valeurs) {
    if (valeur.estNombre) nombre(rangee, colonne++, valeur.nombre, dernier ? m_formats.nombreBas : m_formats.nombre);
    else texte(rangee, colonne++, valeur.texte, dernier ? m_formats.texteBas : m_formats.texte);
  }
}

}  // namespace plv
