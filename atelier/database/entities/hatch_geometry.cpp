// The geometry of a hatch's edges: the arcs that they run along, their ends, and what a map makes of them.
// Angles as they are stored become angles as they run here, and nowhere else.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/entities/hatch_loops.h"
#include "atelier/geometry/turns.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

constexpr double kTurn = 2 * std::numbers::pi, kDegree = std::numbers::pi / 180;

// Between the parameter of an ellipse and the direction to its point from the major axis: from one to the other across a
// stretch of the minor axis, within the same half turn.
double stretched(double angle, double across) {
  const double within = std::remainder(angle, kTurn);
  return angle - within + std::atan2(across * std::sin(within), std::cos(within));
}

EdgeArc runOf(EdgeArc arc, double start, double end, bool counterclockwise) {
  // A whole turn that starts elsewhere than at 0 is one but for rounding.
  constexpr double kHair = 1e-9;
  double sweep = sweepBetween(start, end);
  if (sweep <= kHair || sweep > kTurn - kHair) sweep = kTurn;
  arc.start = counterclockwise ? start : -start;
  arc.sweep = counterclockwise ? sweep : -sweep;
  return arc;
}

// The elliptic edge that runs along an arc whose half diameters are any two conjugate ones.
EllipticEdge ellipticEdge(const EdgeArc& arc) {
  const AcGeVector2d &u = arc.u, &v = arc.v;
  const double t = 0.5 * std::atan2(2 * u.dotProduct(v), u.dotProduct(u) - v.dotProduct(v));
  const AcGeVector2d major = u * std::cos(t) + v * std::sin(t), minor = v * std::cos(t) - u * std::sin(t);
  const bool reversed = major.perpVector().dotProduct(minor) < 0;
  EllipticEdge edge;
  edge.centre = arc.centre;
  edge.major = major;
  edge.ratio = major.length() > 0 ? minor.length() / major.length() : 1;
  edge.counterclockwise = (arc.sweep > 0) != reversed;
  // A whole turn is told by its angles: nothing hangs on where it starts.
  if (std::abs(arc.sweep) >= kTurn) return edge;
  // The start as it is stored, negated for a clockwise edge: the parameter then rises in either case.
  const double start = arc.sweep > 0 ? arc.start - t : t - arc.start;
  const double first = start - kTurn * std::floor(start / kTurn);
  edge.start = stretched(first, edge.ratio) / kDegree;
  edge.end = stretched(first + std::abs(arc.sweep), edge.ratio) / kDegree;
  return edge;
}

struct Mapping {
  const PlaneMap& map;

  void move(std::vector<AcGePoint2d>& points) const {
    for (AcGePoint2d& p : points) p = map(p);
  }
  HatchEdge operator()(const LineEdge& edge) const { return LineEdge{map(edge.from), map(edge.to)}; }
  HatchEdge operator()(ArcEdge edge) const {
    if (!map.keepsAngles()) return conjugate(arcOf(edge));
    edge.centre = map(edge.centre);
    edge.radius *= map.x.length();
    if (map.mirrors()) edge.counterclockwise = !edge.counterclockwise;
    const double turn = (edge.counterclockwise ? map.turn() : -map.turn()) / kDegree;
    if (turn == 0) return edge;
    const double whole = 360 * std::floor((edge.start + turn) / 360);
    edge.start += turn - whole;
    edge.end += turn - whole;
    return edge;
  }
  HatchEdge operator()(EllipticEdge edge) const {
    if (!map.keepsAngles()) return conjugate(arcOf(edge));
    // Measured from the axis, and negated with the sense: the stored angles stay.
    edge.centre = map(edge.centre);
    edge.major = map(edge.major);
    if (map.mirrors()) edge.counterclockwise = !edge.counterclockwise;
    return edge;
  }
  HatchEdge operator()(SplineEdge edge) const {
    move(edge.points);
    move(edge.fit);
    if (edge.startTangent) edge.startTangent = map(*edge.startTangent);
    if (edge.endTangent) edge.endTangent = map(*edge.endTangent);
    return edge;
  }
  HatchEdge conjugate(EdgeArc arc) const {
    arc.centre = map(arc.centre);
    arc.u = map(arc.u);
    arc.v = map(arc.v);
    return ellipticEdge(arc);
  }
};

// The segments of the vertices as edges.
std::vector<HatchEdge> edgesOf(const std::vector<HatchVertex>& vertices) {
  std::vector<HatchEdge> edges;
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const HatchVertex &a = vertices[i], &b = vertices[(i + 1) % vertices.size()];
    if (a.at.distanceTo(b.at) == 0) continue;
    const BulgeArc arc = bulgeArc(a.at, b.at, a.bulge);
    if (!(arc.radius > 0)) {
      edges.push_back(LineEdge{a.at, b.at});
      continue;
    }
    const double start = (a.bulge > 0 ? arc.startAngle : -arc.startAngle) / kDegree;
    edges.push_back(ArcEdge{arc.centre, arc.radius, start, start + std::abs(arc.sweep) / kDegree, a.bulge > 0});
  }
  return edges;
}

}  // namespace

AcGePoint2d EdgeArc::at(double t) const { return centre + u * std::cos(t) + v * std::sin(t); }

EdgeArc arcOf(const ArcEdge& edge) {
  return runOf({edge.centre, {edge.radius, 0}, {0, edge.radius}, 0, 0}, edge.start * kDegree, edge.end * kDegree,
               edge.counterclockwise);
}

EdgeArc arcOf(const EllipticEdge& edge) {
  // A ratio of 0 has no directions to tell parameters from.
  const double across = edge.ratio > 0 ? 1 / edge.ratio : 1;
  return runOf({edge.centre, edge.major, edge.major.perpVector() * edge.ratio, 0, 0},
               stretched(edge.start * kDegree, across), stretched(edge.end * kDegree, across), edge.counterclockwise);
}

std::pair<AcGePoint2d, AcGePoint2d> endsOf(const HatchEdge& edge) {
  if (const auto* line = std::get_if<LineEdge>(&edge)) return {line->from, line->to};
  if (const auto* spline = std::get_if<SplineEdge>(&edge)) {
    const auto& points = spline->points.empty() ? spline->fit : spline->points;
    return points.empty() ? std::pair<AcGePoint2d, AcGePoint2d>() : std::pair(points.front(), points.back());
  }
  const EdgeArc arc =
      std::holds_alternative<ArcEdge>(edge) ? arcOf(std::get<ArcEdge>(edge)) : arcOf(std::get<EllipticEdge>(edge));
  return {arc.at(arc.start), arc.at(arc.start + arc.sweep)};
}

void transform(HatchLoop& loop, const PlaneMap& map) {
  const auto bent = [](const HatchVertex& vertex) { return vertex.bulge != 0; };
  // Vertices that are missing would be taken for edges.
  if (!map.keepsAngles() && std::ranges::any_of(loop.vertices, bent) && loop.missing == 0) {
    loop.edges = edgesOf(loop.vertices);
    loop.vertices.clear();
    loop.type &= ~static_cast<std::int64_t>(AcDbHatch::kPolyline);
  }
  for (HatchVertex& vertex : loop.vertices) {
    vertex.at = map(vertex.at);
    if (map.mirrors()) vertex.bulge = -vertex.bulge;
  }
  for (HatchEdge& edge : loop.edges) edge = std::visit(Mapping{map}, edge);
}

}  // namespace atelier
