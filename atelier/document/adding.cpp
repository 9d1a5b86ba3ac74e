// New entities at the end of the current space.
// They are closed afterwards: nothing stays open while a command waits for an answer.
#include "atelier/document/adding.h"

#include "atelier/document/document.h"
#include "hote/dbsymtb.h"

namespace atelier {

AcDbObjectId addEntity(Document& document, std::unique_ptr<AcDbEntity> entity) {
  entity->setDatabaseDefaults(&document.database());
  return addEntityAsIs(document, std::move(entity));
}

AcDbObjectId addEntityAsIs(Document& document, std::unique_ptr<AcDbEntity> entity) {
  const AcDbObjectPointer<AcDbBlockTableRecord> space(document.database().currentSpaceId(), AcDb::kForWrite);
  if (space.openStatus() != Acad::eOk) throw Error("L'espace courant n'est pas accessible.");
  AcDbObjectId id;
  if (space->appendAcDbEntity(id, entity.get()) != Acad::eOk) throw Error("L'objet n'a pas pu être ajouté au dessin.");
  entity.release()->close();
  return id;
}

}  // namespace atelier
