// The selected row as a place to write in, and the steps that cell writers share.
// Abscissas are distances along the profile from the matrix's block reference; everything written joins the
// group.
#pragma once
#include <optional>
#include <string>

#include "hote/dbents.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/matrices/gestionMatrices.h"
#include "module/support/dessin/kitTextes.h"

namespace plv {

inline constexpr double kToleranceGeometrique = 1e-8;

// Drawing units, but H: the row's height in row units.
struct cellule {
  cellule(matriceProfil& m, ligneMatrice& l);

  matriceProfil& matrice;
  ligneMatrice& ligne;
  double e;       // text height, length of a row unit
  double hh, hb;  // top and bottom of the row, relative to the origin
  double ox, oy;  // origin: the block reference's position
  double H;
  double hauteur() const { return hh - hb; }
  double milieu() const { return (hh + hb) * 0.5; }
  // Drawing ordinate of a fraction of the row, from 0 at its bottom to 1 at its top.
  double ordonnee(double fraction) const { return hb + oy + H * e * fraction; }
  AcGePoint3d point(double x, double y) const { return {x + ox, y + oy, 0.0}; }
};

// The selected row of the selected matrix. Nothing without a selection, or when the matrix isn't in the
// drawing.
std::optional<cellule> celluleActive();

// The opening of a cell writer: its arguments are read, nil is the result, and there is a row to write in.
std::optional<cellule> commencerCellule(ArgsLisp& args);

// The style of the matrix, width factor 1, and the limit.
parametresTexte parametresCellule(const cellule& c, double limite = kSansLimite);
// A new entity joins the matrix's group; a null id doesn't.
void grouper(const cellule& c, AcDbObjectId id);
// A line in row coordinates, colour by layer; it joins the group.
void tracer(const cellule& c, double x1, double y1, double x2, double y2);
// A full-height line at an abscissa.
void tracerRepere(const cellule& c, double x);

// Vertical text. A negative limit stands for the row's height less 0.8 text heights, an ordinate of 0 for the
// row's top. The ordinate, relative to the origin, is where the text's middle or its end comes, half a text
// height lower.
enum class calage { milieu, fin };
void ecrireVertical(const cellule& c, double x, const std::wstring& texte, calage cale, double limite, double ordonnee);
// A station as vertical text: the row's decimals, the format of texteStation.
std::wstring texteValeur(const cellule& c, double valeur, int format);

}  // namespace plv
