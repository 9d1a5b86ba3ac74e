// The functions of this room that LISP calls.
// Cell writers work on the selected row of the selected matrix and take neither.
#pragma once

namespace plv {

// Model: (name); (matrix row label height type); (); (matrix row parameter value).
void pl_CreeMatrice();
void pl_DefinirLigneMatrice();
void pl_ResetMatrices();
void pl_ParamLigneProfil();
// Selection: (name or index); (row), (matrix row).
void pl_SelectMatrice();
void pl_SelectLigne();
// Queries of a drawn matrix: ().
void pl_nbmatrices();
void pl_nblignesmat();
void pl_typelignemat();
void pl_textlignemat();
// Files and drawing: (path); (text height); (ename point height gap); (width).
void pl_LireMatriceKavel();
void pl_LargeurMatrices();
void pl_DessinerMatrices();
void pl_updLargeurLignes();
// Cells: (x text [place [inset]]) for the three; (x text); (mode x value) or ((mode x value)).
void pl_TexteHorizontalCentre();
void pl_TexteHorizontalGauche();
void pl_TexteHorizontalDroite();
void pl_TexteVertical();
void pl_NbreVertical();
// Cells: (x1 x2 text [rule]); (x quadrant [factor]); (x1 x2 direction); (x station text); (x station block
// [text]).
void pl_TexteMultipleCentre();
void pl_Quadrant();
void pl_ArcCell();
void pl_ptPkEtObs();
void pl_BlockVertical();
// Whole rows: (format origin abscissas); (abscissas); a slope: (x1 f1 x2 f2 [text]).
void pl_CotDcumH();
void pl_CotDParH();
void pl_ligneMatrice();
// Block attributes: (ename or selection set); (ename).
void pl_CotAttribsAuto();
void pl_NotifInsertBlock();

}  // namespace plv
