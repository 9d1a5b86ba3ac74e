// Twins of static elements, and the association of blocks by a selection.
// No function for LISP reaches the two last ones; they fix what the stored twins mean.
#include "hote/acdb.h"
#include "hote/aced.h"
#include "hote/acut.h"
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/listeProjet.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitSelections.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr const ACHAR* kRecordDoublon = L"DOUBLON_KAVEL";

// Kept as it is: of an existing record only the first item is overwritten.
void nommerDoublon(AcDbObjectId id, AcDbObjectId jumeau) {
  listeRb nom;
  if (!nom.ajouterPointeur(jumeau)) return;
  listeRb chaine(lireXrecord(id, kRecordDoublon));
  if (resbuf* premier = chaine.tete()) {
    std::swap(premier->restype, nom.tete()->restype);
    std::swap(premier->resval, nom.tete()->resval);
  } else {
    chaine.ajouter(nom.ceder());
  }
  ecrireXrecord(id, kRecordDoublon, chaine.tete());
}

AcDbObjectId idEspaceObjet(AcDbDatabase& base) {
  AcDbObjectPointer<AcDbBlockTable> table(base.blockTableId());
  AcDbObjectId id;
  if (table.openStatus() == Acad::eOk) table->getAt(ACDB_MODEL_SPACE, id);
  return id;
}

}  // namespace

void lierDoublons(AcDbObjectId premier, AcDbObjectId second) {
  nommerDoublon(premier, second);
  nommerDoublon(second, premier);
}

void creerDoublons(elemsFixesKavel& groupe) {
  AcDbDatabase* base = baseCourante();
  retirerMorts(groupe.elements);
  if (!base || groupe.elements.isEmpty()) return;
  AcDbIdMapping correspondance;
  if (base->deepCloneObjects(groupe.elements, idEspaceObjet(*base), correspondance) != Acad::eOk) return;
  for (const AcDbObjectId& element : groupe.elements) {
    AcDbObjectId clone;
    if (!adaptation::copyOf(correspondance, element, clone)) continue;
    groupe.doublons.append(clone);
    lierDoublons(element, clone);
  }
}

void associerParSelection(listeElemsFixes& liste, xDessin gauche, double largeur, yDessin bas) {
  acutPrintf(L"\nSelectionnez Elements a associer:");
  ads_name ss;
  if (acedSSGet(nullptr, nullptr, nullptr, nullptr, ss) != RTNORM) return;
  AcDbObjectIdArray choisis;
  idsDeSelection(ss, choisis);
  for (const AcDbObjectId& id : choisis) {
    AcDbObjectPointer<AcDbBlockReference> bloc(id);
    if (bloc.openStatus() != Acad::eOk) continue;
    const AcGePoint3d place = bloc->position();
    if (place.x < gauche.valeur || place.x > gauche.valeur + largeur || place.y < bas.valeur) continue;
    const distanceProfil distance(place.x - gauche.valeur);
    elemsFixesKavel& groupe = chercherGroupe(liste, distance, kTolerancePosition);
    if (!groupe.elements.contains(id)) groupe.elements.append(id);
  }
  redessinerGroupes(liste, {gauche.valeur, bas.valeur, 0.0});
}

}  // namespace plv
