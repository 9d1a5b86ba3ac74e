// Putting new entities into the drawing.
#pragma once
#include <memory>

#include "hote/dbmain.h"

namespace atelier {

class Document;

// Adds to the current space, with the current layer, colour and line type. Throws Error when that isn't possible.
AcDbObjectId addEntity(Document& document, std::unique_ptr<AcDbEntity> entity);
// The same, with the layer, colour and line type that the entity has.
AcDbObjectId addEntityAsIs(Document& document, std::unique_ptr<AcDbEntity> entity);

}  // namespace atelier
