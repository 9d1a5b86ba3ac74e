// The boundary of a hatch as it stands in its record: loops of vertices, or of edges of four kinds.
// Reference: DXF reference, "HATCH" and "Boundary path data". Points are those of the hatch's plane.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <variant>
#include <vector>

#include "atelier/database/curves/plane_map.h"
#include "atelier/database/objects/imp_object.h"

namespace atelier {

// What the reference leaves open:
// - Groups 50 and 51 of an elliptic edge are degrees between the direction to the point and the major axis. They are not the
//   ellipse's parameter, as 41 and 42 of an ELLIPSE are: at a ratio of 0.5 an edge that starts at 30 starts at the
//   parameter 49.1. ezdxf, GDAL and LibreCAD take them so.
// - Where an arc or an elliptic edge runs clockwise (73 is 0), 50 and 51 are negated: 30 to 140 runs from -30 to -140. For
//   arcs all agree; of elliptic edges LibreCAD alone takes them as they are.
// - The fitted points of a spline edge have a count of their own (97) since R2010 only; before, the 97 after the last
//   edge is the loop's.

struct LineEdge {
  AcGePoint2d from, to;
};
struct ArcEdge {
  AcGePoint2d centre;
  double radius = 0;
  double start = 0, end = 360;  // as they are stored
  bool counterclockwise = true;
};
struct EllipticEdge {
  AcGePoint2d centre;
  AcGeVector2d major;
  double ratio = 1;
  double start = 0, end = 360;  // as they are stored
  bool counterclockwise = true;
};
struct SplineEdge {
  int degree = 3;
  bool rational = false, periodic = false;
  std::vector<double> knots, weights;
  std::vector<AcGePoint2d> points, fit;
  bool fitCounted = false;
  std::optional<AcGeVector2d> startTangent, endTangent;
};
using HatchEdge = std::variant<LineEdge, ArcEdge, EllipticEdge, SplineEdge>;

struct HatchVertex {
  AcGePoint2d at;
  double bulge = 0;  // of the segment that starts here
};

struct HatchLoop {
  std::int64_t type = 0;              // AcDbHatch::HatchLoopType
  std::vector<HatchVertex> vertices;  // of a type with kPolyline; others have edges
  bool bulged = false;                // bulges are written, if only zeros
  bool closed = true;                 // as it is stored: a boundary is closed whatever it says
  std::vector<HatchEdge> edges;
  std::vector<std::uint64_t> sources;
  std::int64_t missing = 0;  // vertices or edges that are counted, but not there or not readable
};

// Loops end where they stop making sense, what came before is kept. `begin` and `end` are the loop's groups.
struct HatchLoopAt {
  HatchLoop loop;
  std::size_t begin, end;
};
std::vector<HatchLoopAt> loadLoops(std::span<const Group* const> groups);
void writeLoop(const HatchLoop& loop, std::vector<Group>& out);

// centre + u cos t + v sin t, t from start on over sweep: radians, negative clockwise, one turn at most.
struct EdgeArc {
  AcGePoint2d centre;
  AcGeVector2d u, v;
  double start, sweep;
  AcGePoint2d at(double t) const;
};
EdgeArc arcOf(const ArcEdge& edge);
EdgeArc arcOf(const EllipticEdge& edge);

// Where an edge starts and ends as the loop runs.
std::pair<AcGePoint2d, AcGePoint2d> endsOf(const HatchEdge& edge);

// A map that doesn't keep angles makes arcs elliptic, and edges of vertices with bulges.
void transform(HatchLoop& loop, const PlaneMap& map);

}  // namespace atelier
