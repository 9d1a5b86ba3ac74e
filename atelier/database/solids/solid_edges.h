// The edges of a solid model: lines, arcs of ellipses and splines, each from its start to its end.
// Inner header of the room.
#pragma once
#include <optional>
#include <variant>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/solids/solid_data.h"
#include "hote/ge.h"

namespace atelier::solid {

struct StraightEdge {};
// Points are centre + cos(t) u + sin(t) v for t from start to start + sweep.
struct EllipticEdge {
  AcGePoint3d centre;
  AcGeVector3d u, v;
  double start = 0, sweep = 0;
};
struct SplineEdge {
  std::vector<AcGePoint3d> points;  // close enough to look smooth, ends included
};

struct Edge {
  AcGePoint3d from, to;
  std::variant<StraightEdge, EllipticEdge, SplineEdge> curve;
};

// None for an edge that can't be followed.
std::optional<Edge> readEdge(const Table& table, const Record& edge);

// How a body is placed: the model's coordinates to the drawing's.
struct Placing {
  AcGeMatrix3d matrix;
  double scale = 1;
};
Placing placingOf(const Table& table);

// The data of an entity: its lines of groups 1, each continued by those of group 3, or the binary form from the drawing's
// data section.
Table tableOf(const atelier::Record& entity, const AcDbImpDatabase* database);

}  // namespace atelier::solid
