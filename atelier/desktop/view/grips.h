// Grips: the handles of a selected entity, and moving one.
#pragma once
#include <vector>

#include "atelier/document/document.h"

namespace atelier::desktop {

inline constexpr int kOfProgram = -1;  // a grip that a program has given, and moves itself

struct Grip {
  AcDbObjectId entity;
  int index;  // counts the grips of the entity
  AcGePoint3d at;
};

// Ends and middle of lines, vertices of polylines, the place of texts, points and inserts, the centre of circles and
// arcs. Nothing for entities that have none.
std::vector<Grip> gripsOf(AcDbObjectId entity);
// Moves the grip, as one step of the journal: a vertex or an end is moved alone, any other grip moves the entity. False
// for an entity on a locked layer or an erased one.
bool moveGrip(Document& document, const Grip& grip, const AcGePoint3d& to);

}  // namespace atelier::desktop
