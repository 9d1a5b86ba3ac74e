// The entity at a point of the drawing, also inside a block.
// A pick finds entities that reach into the pick box around the point.
#pragma once
#include "atelier/lisp/values/value.h"
#include "hote/dbmain.h"

namespace atelier {

class Document;

// The entity of the current space nearest to the point, within the pick box; of several equally near the one drawn
// last. Null when there is none. Layers that are off or frozen are left out.
AcDbObjectId pickAt(Document& document, const AcGePoint3d& point);
// Half the side of the pick box in drawing units: PICKBOX pixels of a view VIEWSIZE high.
double pickRadius(Document& document);
// Distance in plan from the point to what the entity draws; infinite when it draws nothing.
double distanceTo(const AcDbEntity& entity, const AcGePoint3d& point);
// What nentsel gives for a picked entity: (entity point) for an entity of the drawing or an attribute; (entity point
// matrix (inserts...)) for a part of a block: the matrix from block to world coordinates as four rows of three, and the
// inserts, innermost first. nentselp gives four rows of four instead, which move a column.
enum class MatrixForm { fourRowsOfThree, square };
lisp::Value nestedPick(Document& document, AcDbObjectId picked, const AcGePoint3d& point,
                       MatrixForm form = MatrixForm::fourRowsOfThree);

}  // namespace atelier
