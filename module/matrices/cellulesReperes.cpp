// Cell writers: a tick with its station and a remark, and a block on a stem with its station.
// Both write two vertical texts, one after the other along the vertical.
#include <cmath>
#include <memory>

#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/support/dessin/kitBlocs.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr int kFormatPk = 1;

// The extents' edge below (hanging) or above the row's top gives the height of the block.
double hauteurBloc(const cellule& c, AcDbObjectId id, bool suspendu) {
  AcDbObjectPointer<AcDbBlockReference> reference(id);
  AcDbExtents etendue;
  if (reference.openStatus() != Acad::eOk || reference->getGeomExtents(etendue) != Acad::eOk) return 0.0;
  const double sommet = c.hh + c.oy;
  return suspendu ? std::abs(etendue.minPoint().y - sommet) : std::abs(sommet - etendue.maxPoint().y);
}

// Inserts a block of the drawing or of a file at the row's scale, hanging from the row's top or standing on
// its bottom, `decalage` away from it. False when there is no such block.
bool poserBloc(const cellule& c, const std::wstring& chemin, double x, double decalage, bool suspendu,
               double& hauteur) {
  AcDbObjectId bloc;
  if (!importerBloc(bloc, chemin, baseCourante())) return false;
  auto reference = std::make_unique<AcDbBlockReference>(c.point(x, suspendu ? c.hh - decalage : c.hb + decalage), bloc);
  reference->setScaleFactors(AcGeScale3d(c.e));
  AcDbObjectId id;
  ajouterEspaceObjet(std::move(reference), &id);
  hauteur = hauteurBloc(c, id, suspendu);
  grouper(c, id);
  return true;
}

}  // namespace

void pl_ptPkEtObs() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RRC")) return;
  const double x = valeurReelle(args.nieme(0));
  const double limite = (c->H - 1.0) * c->e * 0.5;
  const auto ecrire = [&](const std::wstring& texte, double fraction) {
    ecrireVertical(*c, x + c->e * 1.5, texte, calage::milieu, limite, c->H * c->e * fraction + c->hb);
  };
  tracerRepere(*c, x);
  ecrire(texteValeur(*c, valeurReelle(args.nieme(1)), kFormatPk), 0.25);
  ecrire(valeurTexte(args.nieme(2)), 0.75);
  acedRetT();
}

void pl_BlockVertical() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RRC")) return;
  const double x = valeurReelle(args.nieme(0));
  double b = 0.0;
  if (!poserBloc(*c, valeurTexte(args.nieme(2)), x, 0.0, true, b)) return;
  const auto hauteurDe = [&](double fraction) { return c->hb + c->H * c->e * fraction; };
  tracer(*c, x, hauteurDe(1.0 - b / c->hauteur()), x, hauteurDe(0.25));
  const double limite = c->hauteur() * 0.75 - b;
  const double ordonnee = std::abs(c->hauteur() * 0.25 + limite * 0.5) + c->hb;
  ecrireVertical(*c, x - c->e * 1.5, texteValeur(*c, valeurReelle(args.nieme(1)), kFormatPk), calage::milieu, limite,
                 ordonnee);
  if (estChaine(args.nieme(3)))
    ecrireVertical(*c, x + c->e * 1.5, valeurTexte(args.nieme(3)), calage::milieu, limite, ordonnee);
  acedRetT();
}

}  // namespace plv
