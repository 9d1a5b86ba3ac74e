// The entity at a point of the drawing, also inside a block.
// A pick finds entities that reach into the pick box around the point.
#pragma once
#include <vector>

#include "atelier/lisp/values/value.h"
#include "hote/dbmain.h"

namespace atelier {

class Document;

// The entities of the current space within the pick box around the point, the one that a pick takes first: curves and texts
// before blocks, those before hatches, which often lie under all of them; then the nearest, and of several equally near the
// one drawn last. Layers that are off or frozen are left out.
std::vector<AcDbStub*> picksAt(Document& document, const AcGePoint3d& point);
// The first of them, or the one that the user prefers. Null when there is none.
AcDbObjectId pickAt(Document& document, const AcGePoint3d& point);
// Half the side of the pick box in drawing units: PICKBOX pixels of a view VIEWSIZE high, as the user points.
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
