// et_axe: curves of the drawing as one axis in plan. et_axe_depuis: the rest of an axis from a distance on. et_rencontres: what it meets.
#include "etudes/terrain/arguments.h"
#include "etudes/terrain/fonctions.h"
#include "etudes/terrain/lectureAxe.h"
#include "etudes/terrain/rencontres.h"

namespace etu {

namespace {

std::vector<axePlan> piecesDe(const AcDbObjectIdArray& ids) {
  std::vector<axePlan> pieces;
  for (const AcDbObjectId id : ids) {
    const AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk) continue;
    if (!AcDbCurve::cast(entite.object()))
      throw refus{L"un axe est fait de polylignes, lignes, arcs et splines; ce qui est désigné comprend autre chose"};
    if (axePlan piece = axeDeCourbe(*entite); !piece.empty()) pieces.push_back(std::move(piece));
  }
  return pieces;
}

void rendreAxe(const axePlan& axe) {
  plv::listeRb liste;
  ajouterAxe(liste, axe);
  acedRetList(liste.tete());
}

}  // namespace

void et_axe() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const AcDbObjectIdArray ids = entitesDe(args.nieme(0));
  if (ids.isEmpty()) return;
  repondre([&] {
    std::vector<axePlan> pieces = piecesDe(ids);
    if (pieces.empty()) throw refus{L"l'axe est de longueur nulle"};
    axePlan axe = enchainer(std::move(pieces));
    const resbuf* retourner = args.nieme(1);
    if (retourner && retourner->restype == RTT) axe = inverse(axe);
    rendreAxe(axe);
  });
}

void et_axe_depuis() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  axePlan axe;
  if (!lireAxe(noeud, axe) || !plv::estNombre(noeud)) return;
  axe = depuis(axe, plv::valeurReelle(noeud));
  if (axe.size() > 1) rendreAxe(axe);
}

void et_rencontres() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  axePlan axe;
  if (!lireAxe(noeud, axe) || !noeud || !plv::estNombre(noeud->rbnext)) return;
  const std::vector<rencontre> trouvees = rencontresDe(cordes(axe), entitesDe(noeud), plv::valeurReelle(noeud->rbnext));
  if (trouvees.empty()) return;
  plv::listeRb liste(acutBuildList(RTLB, 0));
  for (const rencontre& r : trouvees)
    liste.ajouter(acutBuildList(RTLB, RTREAL, r.distance, RTSTR, r.nom.c_str(), RTLE, 0));
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

}  // namespace etu
