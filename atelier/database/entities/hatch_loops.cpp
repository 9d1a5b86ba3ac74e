// Reading and writing the loops of a hatch: groups mean something only by their order.
// Counts are believed only as far as the groups follow.
#include "atelier/database/entities/hatch_loops.h"

#include <algorithm>

#include "atelier/database/entities/group_reader.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

constexpr int kLoopCount = 91, kLoopType = 92, kItemCount = 93, kSourceCount = 97, kSource = 330, kStyle = 75;
constexpr int kEdgeKind = 72, kBulged = 72, kClosed = 73, kBulge = 42;
constexpr int kCounterclockwise = 73, kStart = 50, kEnd = 51;
constexpr int kDegree = 94, kRational = 73, kPeriodic = 74, kKnotCount = 95, kPointCount = 96, kFitCount = 97;
constexpr int kStartTangent = 12, kEndTangent = 13;
// The kinds of group 72, in the order of the variant.
constexpr int kLine = 1, kArc = 2, kElliptic = 3, kSpline = 4;

template <class Edge>
Edge ranged(GroupReader& in, Edge edge) {
  edge.start = in.real(kStart);
  edge.end = in.real(kEnd);
  edge.counterclockwise = in.integer(kCounterclockwise, 1) != 0;
  return edge;
}

ArcEdge readArc(GroupReader& in) {
  ArcEdge edge;
  edge.centre = in.point(10);
  edge.radius = in.real(40);
  return ranged(in, edge);
}

EllipticEdge readElliptic(GroupReader& in) {
  EllipticEdge edge;
  edge.centre = in.point(10);
  edge.major = in.vector(11);
  edge.ratio = in.real(40, 1);
  return ranged(in, edge);
}

SplineEdge readSpline(GroupReader& in) {
  SplineEdge edge;
  edge.degree = static_cast<int>(in.integer(kDegree, 3));
  edge.rational = in.integer(kRational) != 0;
  edge.periodic = in.integer(kPeriodic) != 0;
  std::int64_t knots = in.integer(kKnotCount), points = in.integer(kPointCount);
  for (; knots > 0 && in.at(40); --knots) edge.knots.push_back(in.real(40));
  for (; points > 0 && in.at(10); --points) {
    edge.points.push_back(in.point(10));
    if (edge.rational || in.at(42)) edge.weights.push_back(in.real(42, 1));
  }
  // A count of 0 may be the loop's: the spline's is followed by something else than sources or the next loop.
  const bool more = in.at(kEdgeKind, 1) || in.at(kSourceCount, 1) || in.at(11, 1) || in.at(kStartTangent, 1);
  edge.fitCounted = in.at(kFitCount) && more;
  if (edge.fitCounted)
    for (std::int64_t n = in.integer(kFitCount); n > 0 && in.at(11); --n) edge.fit.push_back(in.point(11));
  if (in.at(kStartTangent)) edge.startTangent = in.vector(kStartTangent);
  if (in.at(kEndTangent)) edge.endTangent = in.vector(kEndTangent);
  return edge;
}

std::optional<HatchEdge> readEdge(GroupReader& in) {
  // Of an edge of no known kind nothing is passed, so that it stays where it is.
  GroupReader edge = in;
  std::optional<HatchEdge> result;
  switch (edge.integer(kEdgeKind)) {
    case kLine: {
      const AcGePoint2d from = edge.point(10);
      result = LineEdge{from, edge.point(11)};
      break;
    }
    case kArc: result = readArc(edge); break;
    case kElliptic: result = readElliptic(edge); break;
    case kSpline: result = readSpline(edge); break;
    default: return std::nullopt;
  }
  in = edge;
  return result;
}

HatchLoop readLoop(GroupReader& in) {
  HatchLoop loop;
  loop.type = in.integer(kLoopType);
  const bool polyline = loop.type & AcDbHatch::kPolyline;
  if (polyline) {
    loop.bulged = in.integer(kBulged) != 0;
    loop.closed = in.integer(kClosed) != 0;
  }
  loop.missing = std::max<std::int64_t>(in.integer(kItemCount), 0);
  for (; polyline && loop.missing > 0 && in.at(10); --loop.missing) {
    loop.vertices.push_back({in.point(10)});
    if (in.at(kBulge)) loop.bulged = true, loop.vertices.back().bulge = in.real(kBulge);
  }
  for (; !polyline && loop.missing > 0; --loop.missing) {
    auto edge = readEdge(in);
    if (!edge) break;
    loop.edges.push_back(std::move(*edge));
  }
  if (loop.missing > 0) return loop;
  for (std::int64_t n = in.integer(kSourceCount); n > 0 && in.at(kSource); --n)
    loop.sources.push_back(in.handle(kSource));
  return loop;
}

class EdgeWriter : public GroupWriter {
 public:
  using GroupWriter::GroupWriter;
  void operator()(const LineEdge& edge) {
    integer(kEdgeKind, kLine);
    point(10, edge.from);
    point(11, edge.to);
  }
  void operator()(const ArcEdge& edge) {
    integer(kEdgeKind, kArc);
    point(10, edge.centre);
    real(40, edge.radius);
    range(edge);
  }
  void operator()(const EllipticEdge& edge) {
    integer(kEdgeKind, kElliptic);
    point(10, edge.centre);
    vector(11, edge.major);
    real(40, edge.ratio);
    range(edge);
  }
  void operator()(const SplineEdge& edge) {
    integer(kEdgeKind, kSpline);
    integer(kDegree, edge.degree);
    integer(kRational, edge.rational);
    integer(kPeriodic, edge.periodic);
    count(kKnotCount, edge.knots.size());
    count(kPointCount, edge.points.size());
    for (const double knot : edge.knots) real(40, knot);
    for (std::size_t i = 0; i < edge.points.size(); ++i) {
      point(10, edge.points[i]);
      if (i < edge.weights.size()) real(42, edge.weights[i]);
    }
    if (edge.fitCounted) count(kFitCount, edge.fit.size());
    for (const AcGePoint2d& p : edge.fit) point(11, p);
    if (edge.startTangent) vector(kStartTangent, *edge.startTangent);
    if (edge.endTangent) vector(kEndTangent, *edge.endTangent);
  }

 private:
  template <class Edge>
  void range(const Edge& edge) {
    real(kStart, edge.start);
    real(kEnd, edge.end);
    integer(kCounterclockwise, edge.counterclockwise);
  }
};

}  // namespace

std::vector<HatchLoopAt> loadLoops(std::span<const Group* const> groups) {
  std::vector<HatchLoopAt> loops;
  GroupReader in(groups);
  if (!in.seek(kLoopCount)) return loops;
  for (std::int64_t n = in.integer(kLoopCount); n > 0 && in.seek(kLoopType, kStyle); --n) {
    const std::size_t begin = in.place();
    HatchLoop loop = readLoop(in);
    loops.push_back({std::move(loop), begin, in.place()});
  }
  return loops;
}

void writeLoop(const HatchLoop& loop, std::vector<Group>& out) {
  EdgeWriter writer(out);
  const bool polyline = loop.type & AcDbHatch::kPolyline;
  writer.integer(kLoopType, loop.type);
  if (polyline) {
    writer.integer(kBulged, loop.bulged);
    writer.integer(kClosed, loop.closed);
  }
  writer.integer(kItemCount, static_cast<std::int64_t>(loop.vertices.size() + loop.edges.size()) + loop.missing);
  for (const HatchVertex& vertex : loop.vertices) {
    writer.point(10, vertex.at);
    if (loop.bulged) writer.real(kBulge, vertex.bulge);
  }
  for (const HatchEdge& edge : loop.edges) std::visit(writer, edge);
  // The sources of a loop that stops making sense stand somewhere after what is left of it.
  if (loop.missing > 0) return;
  writer.count(kSourceCount, loop.sources.size());
  for (const std::uint64_t source : loop.sources) writer.handle(kSource, source);
}

}  // namespace atelier
