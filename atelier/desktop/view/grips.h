// Grips: the handles of a selected entity, and moving one.
#pragma once
#include <vector>

#include "atelier/document/document.h"

namespace atelier::desktop {

struct Grip {
  AcDbObjectId entity;
  int index;  // counts the grips of the entity
  AcGePoint3d at;
};

// Ends and middle of lines, vertices of polylines, the place of texts, points and inserts, the centre of circles and
// arcs. Nothing for entities that have none.
std::vector<Grip> gripsOf(AcDbObjectId entity);
// Moves the grip as a step of its own in the journal: a vertex or an end alone, any other place with the entity.
// False for an entity on a locked layer or one that is gone.
bool moveGrip(Document& document, const Grip& grip, const AcGePoint3d& to);

}  // namespace atelier::desktop
