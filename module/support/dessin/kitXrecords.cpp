// Xrecords in the extension dictionary of an object.
// The object is closed again before its dictionary is opened.
#include "module/support/dessin/kitXrecords.h"

#include <memory>

namespace plv {

namespace {

// The extension dictionary, made when it is missing: null when the object doesn't open for write.
AcDbObjectId dictionnairePourEcrire(AcDbObjectId id) {
  AcDbObjectPointer<AcDbObject> objet(id, AcDb::kForWrite);
  if (objet.openStatus() != Acad::eOk) return AcDbObjectId::kNull;
  const Acad::ErrorStatus etat = objet->createExtensionDictionary();
  return etat == Acad::eOk || etat == Acad::eAlreadyInDb ? objet->extensionDictionary() : AcDbObjectId::kNull;
}

AcDbObjectId dictionnaire(AcDbObjectId id) {
  AcDbObjectPointer<AcDbObject> objet(id);
  return objet.openStatus() == Acad::eOk ? objet->extensionDictionary() : AcDbObjectId::kNull;
}

}  // namespace

bool ecrireXrecord(AcDbObjectId objet, const ACHAR* cle, const resbuf* chaine) {
  AcDbObjectPointer<AcDbDictionary> dico(dictionnairePourEcrire(objet), AcDb::kForWrite);
  if (dico.openStatus() != Acad::eOk) return false;
  auto record = std::make_unique<AcDbXrecord>();
  if (chaine && record->setFromRbChain(*chaine) != Acad::eOk) return false;
  record->setXlateReferences(true);
  AcDbObjectId id;
  if (dico->setAt(cle, record.get(), id) != Acad::eOk) return false;
  record.release()->close();
  return true;
}

resbuf* lireXrecord(AcDbObjectId objet, const ACHAR* cle) {
  if (objet.isNull()) return nullptr;
  AcDbObjectPointer<AcDbDictionary> dico(dictionnaire(objet));
  AcDbObjectId id;
  if (dico.openStatus() != Acad::eOk || dico->getAt(cle, id) != Acad::eOk) return nullptr;
  AcDbObjectPointer<AcDbXrecord> record(id);
  resbuf* chaine = nullptr;
  if (record.openStatus() != Acad::eOk || record->rbChain(&chaine) != Acad::eOk) return nullptr;
  return chaine;
}

}  // namespace plv
