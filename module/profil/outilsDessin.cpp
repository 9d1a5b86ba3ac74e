// pl_text, pl_li and pl_fleche: drawing primitives for the front-end.
// All of them draw in model space, colour by layer.
#include <algorithm>
#include <numbers>

#include "module/commande/arguments/argsLisp.h"
#include "module/profil/fonctionsProfil.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitTextes.h"

namespace plv {

namespace {

constexpr double kFacteurTexte = 0.8;

// Height and rotation of pl_text. Kept as it is: 32-bit integers are refused.
bool estReelOuCourt(const resbuf* rb) { return rb && (rb->restype == RTREAL || rb->restype == RTSHORT); }

struct controle {
  bool (*accepte)(const resbuf*);
  const ACHAR* message;
};

constexpr controle kControlesTexte[] = {{estChaine, L"\nparam justif: non str"},
                                        {estPoint, L"\nparam position: non point"},
                                        {estReelOuCourt, L"\n1er param: non reel"},
                                        {estReelOuCourt, L"\nparam rot: non reel"},
                                        {estChaine, L"\n1er param texte: non str"}};

const ACHAR* fauteTexte(const resbuf* rb) {
  for (const controle& c : kControlesTexte) {
    if (!c.accepte(rb)) return c.message;
    rb = rb->rbnext;
  }
  return nullptr;
}

AcGePoint3d dansLePlan(AcGePoint3d point) {
  point.z = 0.0;
  return point;
}

void ecrireTexte(const std::wstring& justification, const std::wstring& texte, const AcGePoint3d& position,
                 double hauteur, double rotation) {
  parametresTexte parametres{.facteur = kFacteurTexte};
  switch (justification.empty() ? L'\0' : majuscule(justification.front())) {
    case L'C': texteCentre(texte, position, hauteur, rotation, parametres); break;
    case L'M': texteMilieu(texte, position, hauteur, rotation, parametres); break;
    case L'R': texteDroite(texte, position, hauteur, rotation, parametres); break;
    default: texteGauche(texte, position, hauteur, rotation, kFacteurTexte); break;
  }
}

// A shaft without width, then a head 1.5 sizes long and one size wide at its base.
void dessinerFleche(const AcGePoint2d& a, const AcGePoint2d& b, double taille) {
  const AcGeVector2d u = (b - a).normal();
  auto fleche = std::make_unique<AcDbPolyline>(3);
  fleche->addVertexAt(0, a);
  fleche->addVertexAt(1, a + u * (a.distanceTo(b) - 1.5 * taille), 0.0, taille, 0.0);
  fleche->addVertexAt(2, b);
  ajouterEspaceObjet(std::move(fleche));
}

// Where the text of an arrow stands: above the middle of a line that runs to the right.
AcGePoint3d placeTexteFleche(AcGePoint3d a, AcGePoint3d b, double taille) {
  if (b.x < a.x || (b.x == a.x && b.y < a.y)) std::swap(a, b);
  const AcGeVector2d n = AcGeVector2d(b.x - a.x, b.y - a.y).normal().perpVector();
  return {(a.x + b.x) / 2 + n.x * taille * 0.75, (a.y + b.y) / 2 + n.y * taille * 0.75, (a.z + b.z) / 2};
}

}  // namespace

void pl_text() {
  resbuf* args = acedGetArgs();
  acedRetNil();
  if (const ACHAR* faute = fauteTexte(args)) {
    acdbFail(faute);
    acutRelRb(args);  // this function alone releases the host's chain, and only here
    return;
  }
  const resbuf* position = args->rbnext;
  const resbuf* hauteur = position->rbnext;
  const resbuf* rotation = hauteur->rbnext;
  ecrireTexte(valeurTexte(args), valeurTexte(rotation->rbnext), dansLePlan(valeurPoint(position)),
              valeurReelle(hauteur), valeurReelle(rotation));
  acedRetVoid();
}

void pl_li() {
  ArgsLisp args;
  commencerAppel(args);
  for (const resbuf* rb = args.tete(); estPoint(rb) && estPoint(rb->rbnext); rb = rb->rbnext)
    dessinerLigne(dansLePlan(valeurPoint(rb)), dansLePlan(valeurPoint(rb->rbnext)));
  acedRetVoid();
}

// Kept as it is: an arrow that runs leftwards has its text upside down, since the text follows the arrow.
void pl_fleche() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "PPRC")) return;
  const AcGePoint3d a = valeurPoint(args.nieme(0)), b = valeurPoint(args.nieme(1));
  const double taille = valeurReelle(args.nieme(2));
  dessinerFleche({a.x, a.y}, {b.x, b.y}, taille);
  acedRetInt(1);
  parametresTexte parametres;
  texteCentre(valeurTexte(args.nieme(3)), placeTexteFleche(a, b, taille), taille,
              acutAngle(asDblArray(a), asDblArray(b)), parametres);
}

}  // namespace plv
