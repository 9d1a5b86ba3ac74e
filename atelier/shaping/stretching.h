// STRETCH: what of an entity lies in an area moves, and the rest stays.
#pragma once
#include <functional>

#include "hote/dbents.h"

namespace atelier {

// Whether a place, in world coordinates, is to be moved.
using Moves = std::function<bool(const AcGePoint3d& place)>;

// Moves the vertices, ends and points of an open entity that are to be moved; one with all of them there, and one that has a
// single place only, moves whole or not at all. Arcs keep their angle. A dimension is drawn anew.
void stretch(AcDbEntity& entity, const Moves& moves, const AcGeVector3d& by);

}  // namespace atelier
