// Cell writers: quarter circles in the corners of a row, and arcs across it.
// Kept as it is: arcs join no group, unlike the texts and lines of other cells.
#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr double kFacteurQuadrant = 0.33;
constexpr double kFacteurMin = 0.02, kFacteurMax = 1.0;

// Where a quadrant's centre stands from x, from which edge of the row, and where its quarter begins.
struct quadrant {
  double coteX;
  bool enHaut;
  double debut;
};
constexpr quadrant kQuadrants[] = {{-1.0, true, 0.0},
                                   {1.0, true, std::numbers::pi / 2},
                                   {1.0, false, std::numbers::pi},
                                   {-1.0, false, 3 * std::numbers::pi / 2}};

double angleDe(const AcGePoint2d& centre, const AcGePoint2d& point) { return (point - centre).angle(); }

}  // namespace

// Kept as it is: a code outside the table draws nothing and still succeeds.
void pl_Quadrant() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RE")) return;
  const double x = valeurReelle(args.nieme(0));
  const Adesk::Int32 code = valeurEntiere(args.nieme(1));
  double facteur = kFacteurQuadrant;
  if (const resbuf* donne = args.nieme(2)) {
    if (!estNombre(donne)) return;
    if (valeurReelle(donne) > 0.0 && valeurReelle(donne) < 1.0) facteur = valeurReelle(donne);
  }
  acedRetT();
  if (code < 0 || code >= static_cast<Adesk::Int32>(std::size(kQuadrants))) return;
  const double r = c->H * c->e * std::clamp(facteur, kFacteurMin, kFacteurMax);
  const quadrant& q = kQuadrants[code];
  const AcGePoint3d centre = c->point(x + q.coteX * r, q.enHaut ? c->hh - r : c->hb + r);
  ajouterEspaceObjet(std::make_unique<AcDbArc>(centre, kNormale, r, q.debut, q.debut + std::numbers::pi / 2));
}

// Through both abscissas at mid-height and the row's top or bottom between them. Two equal abscissas have no
// circle.
void pl_ArcCell() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RRE")) return;
  const double x1 = valeurReelle(args.nieme(0)), x2 = valeurReelle(args.nieme(1));
  const bool versLeHaut = valeurEntiere(args.nieme(2)) != 0;
  const double s = c->H * c->e * 0.5;
  const AcGePoint2d gauche(std::min(x1, x2), 0.0), droite(std::max(x1, x2), 0.0);
  const AcGePoint2d debut = versLeHaut ? droite : gauche, fin = versLeHaut ? gauche : droite;
  const AcGeCircArc2d cercle(debut, {(x1 + x2) * 0.5, versLeHaut ? s : -s}, fin);
  acedRetT();
  if (!(cercle.radius() > 0.0)) return;
  const AcGePoint2d centre = cercle.center();
  ajouterEspaceObjet(std::make_unique<AcDbArc>(c->point(centre.x, centre.y + c->hb + s), kNormale, cercle.radius(),
                                               angleDe(centre, debut), angleDe(centre, fin)));
}

}  // namespace plv
