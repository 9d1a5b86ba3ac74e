// Slope rows: one diagonal of a row at a call, and slope labels.
// Fractions of the row run from 0 at its bottom to 1 at its top.
#include <algorithm>
#include <cmath>

#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/profil/profilLong.h"
#include "module/support/base/nombres.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

struct extremite {
  double x, fraction;
};

// Kept as it is: to at least 0 first, to at most the length then. With a length of 0 everything falls on the start.
double borner(double valeur, double haut) {
  if (!(valeur > 0.0)) valeur = 0.0;
  return valeur < haut ? valeur : haut;
}

// Above the middle of a to b. It follows the drawing's current style, not the matrix's.
void ecrireSurDiagonale(const cellule& c, const AcGePoint3d& a, const AcGePoint3d& b, const std::wstring& texte) {
  const AcGeVector2d direction(b.x - a.x, b.y - a.y);
  const AcGeVector2d decalage = direction.normal().perpVector() * (c.e * 0.2);
  parametresTexte parametres;
  texteCentre(texte, {(a.x + b.x) * 0.5 + decalage.x, (a.y + b.y) * 0.5 + decalage.y, 0.0}, c.e, direction.angle(),
              parametres);
}

std::wstring textePente(double dh, double di, double pente) {
  return L"Dh=" + texteFixe(dh, 2) + L" Di=" + texteFixe(di, 2) + L" P=" + texteFixe(std::abs(pente) * 100.0, 2) +
         L" %";
}

}  // namespace

bool matriceProfil::coterPente(double x, double dh, double di, double pente) {
  ligneMatrice* ligne = ligneActive();
  if (!ligne) return false;
  const cellule c(*this, *ligne);
  const bool descend = pente >= 0.0;
  const double yl = descend ? c.hh : c.hb, yr = descend ? c.hb : c.hh;
  const AcGeVector2d diagonale(dh, yr - yl);
  const AcGeVector2d decalage = (diagonale.normal() * (c.e * 0.5)).perpVector();
  parametresTexte parametres = parametresCellule(c, 0.9 * diagonale.length());
  AcDbObjectId id;
  texteCentre(textePente(dh, di, pente), c.point(x + dh * 0.5 + decalage.x, (yl + yr) * 0.5 + decalage.y), c.e,
              diagonale.angle(), parametres, &id);
  grouper(c, id);
  tracerRepere(c, x);
  tracerRepere(c, x + dh);
  return true;
}

// Kept as it is: nil in every case, whether something was drawn or not.
void pl_ligneMatrice() {
  ArgsLisp args;
  args.lireArgs();
  const auto c = celluleActive();
  if (!c || !conforme(args, "RRRR")) return;
  profilLong profil;
  const double longueur = profil.lireId(collectionMatrices().idProfil) ? profil.longueurTn() : 0.0;
  extremite a{borner(valeurReelle(args.nieme(0)), longueur), borner(valeurReelle(args.nieme(1)), 1.0)};
  extremite b{borner(valeurReelle(args.nieme(2)), longueur), borner(valeurReelle(args.nieme(3)), 1.0)};
  if (a.x > b.x) std::swap(a, b);
  const AcGePoint3d debut(c->ox + a.x, c->ordonnee(a.fraction), 0.0);
  const AcGePoint3d fin(c->ox + b.x, c->ordonnee(b.fraction), 0.0);
  dessinerLigne(debut, fin);
  if (estChaine(args.nieme(4))) ecrireSurDiagonale(*c, debut, fin, valeurTexte(args.nieme(4)));
}

}  // namespace plv
