// Cell writers: horizontal text, vertical text and vertical number.
// Text across the row keeps its size; text upright shrinks to the row.
#include <cmath>

#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/support/base/nombres.h"

namespace plv {

namespace {

// Only the sign of the place counts: 0 the middle of the row, below 0 near its bottom, above 0 near its top.
double ligneDeBase(const cellule& c, double place) {
  if (std::abs(place) < kToleranceGeometrique) return c.hb + c.hauteur() * 0.5 - c.e * 0.5;
  return place < 0.0 ? c.hb + c.e * 0.2 : c.hh - c.e * 1.2;
}

double nombreOu0(const resbuf* rb) { return estNombre(rb) ? valeurReelle(rb) : 0.0; }

// (x text [place [inset]]). The inset counts in text heights, rightwards or leftwards by the given sense.
void ecrireHorizontal(decltype(&texteCentre) ecrire, double sensRetrait) {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RC")) return;
  const double place = nombreOu0(args.nieme(2));
  const double retrait = std::abs(nombreOu0(args.nieme(3))) * sensRetrait;
  parametresTexte parametres = parametresCellule(*c);
  AcDbObjectId id;
  ecrire(valeurTexte(args.nieme(1)), c->point(valeurReelle(args.nieme(0)) + c->e * retrait, ligneDeBase(*c, place)),
         c->e, 0.0, parametres, &id);
  grouper(*c, id);
  acedRetT();
}

}  // namespace

void pl_TexteHorizontalCentre() { ecrireHorizontal(texteCentre, 0.0); }
void pl_TexteHorizontalGauche() { ecrireHorizontal(texteAligneDroit, 1.0); }
void pl_TexteHorizontalDroite() { ecrireHorizontal(texteDroite, -1.0); }

void pl_TexteVertical() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RC")) return;
  ecrireVertical(*c, valeurReelle(args.nieme(0)) + c->e * 0.5, valeurTexte(args.nieme(1)), calage::milieu,
                 (c->H - 1.0) * c->e * 0.5, c->hb + c->H * c->e * 0.5);
  acedRetT();
}

// The three numbers may come as one point: LISP makes one of a list of three numbers.
void pl_NbreVertical() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c) return;
  const resbuf* premier = args.tete();
  double x = 0, valeur = 0;
  Adesk::Int32 mode = 0;
  if (premier && premier->restype == RT3DPOINT) {
    mode = tronquer32(premier->resval.rpoint[0]);
    x = premier->resval.rpoint[1];
    valeur = premier->resval.rpoint[2];
  } else if (conforme(args, "ERR")) {
    mode = valeurEntiere(args.nieme(0));
    x = valeurReelle(args.nieme(1));
    valeur = valeurReelle(args.nieme(2));
  } else {
    return;
  }
  ecrireVertical(*c, x + c->e * 0.5, texteValeur(*c, valeur, mode), calage::fin, -1.0, 0.0);
  acedRetT();
}

}  // namespace plv
