// et_entites: the entities that a record names and that are there. AutoLISP would look at each of them.
#include "etudes/suivi/fonctions.h"
#include "hote/acdb.h"
#include "hote/dbents.h"
#include "hote/dbsymtb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/support/dessin/kitXrecords.h"

namespace etu {

namespace {

constexpr short kGroupeEntite = 330;

// Whether an object is there, and on the layer, where one is asked for.
bool presente(AcDbObjectId id, AcDbObjectId calque) {
  const AcDbObjectPointer<AcDbObject> objet(id);
  if (objet.openStatus() != Acad::eOk) return false;
  if (calque.isNull()) return true;
  const auto* entite = AcDbEntity::cast(objet.object());
  return entite && entite->layerId() == calque;
}

}  // namespace

void et_entites() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* porteur = args.nieme(0);
  const resbuf* cle = args.nieme(1);
  if (!plv::estNom(porteur) || !plv::estChaine(cle)) return;
  AcDbObjectId calque;
  if (const resbuf* nom = cle->rbnext; plv::estChaine(nom)) {
    const AcDbObjectPointer<AcDbLayerTable> calques(acdbHostApplicationServices()->workingDatabase()->layerTableId());
    if (calques.openStatus() != Acad::eOk || calques->getAt(plv::valeurTexte(nom).c_str(), calque) != Acad::eOk) return;
  }
  plv::listeRb groupes(plv::lireXrecord(plv::valeurId(porteur), plv::valeurTexte(cle).c_str())), liste;
  for (const resbuf* g = groupes.tete(); g; g = g->rbnext) {
    AcDbObjectId id;
    if (g->restype != kGroupeEntite || acdbGetObjectId(id, g->resval.rlname) != Acad::eOk || !presente(id, calque))
      continue;
    liste.ajouter(acutBuildList(RTENAME, g->resval.rlname, 0));
  }
  if (liste.tete()) acedRetList(liste.tete());
}

}  // namespace etu
