// The boundary of a hatch as a path, and its pattern, from what the database reads.
// Which loops count hangs on the style.
#include "atelier/render/scene/hatch.h"

#include <algorithm>
#include <numbers>

#include "atelier/database/entities/hatch_loops.h"
#include "atelier/database/entities/hatch_pattern.h"
#include "atelier/geometry/bspline.h"
#include "atelier/render/scene/colours.h"
#include "atelier/render/shapes/tessellate.h"
#include "hote/dbents.h"

namespace atelier::render {

namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr int kGradient = 450, kGradientColours = 453, kGradientTurn = 460, kGradientPlace = 463, kGradientName = 470,
              kGradientIndex = 63, kGradientTrue = 421;

Pt pointOf(const AcGePoint2d& p) { return {p.x, p.y}; }
Pt pointOf(const AcGeVector2d& v) { return {v.x, v.y}; }

struct PathOfEdges {
  Path& path;

  void operator()(const LineEdge& edge) const {
    path.lineTo(pointOf(edge.from));
    path.lineTo(pointOf(edge.to));
  }
  void operator()(const ArcEdge& edge) const { add(arcOf(edge)); }
  void operator()(const EllipticEdge& edge) const { add(arcOf(edge)); }
  void operator()(const SplineEdge& edge) const {
    Nurbs curve{edge.degree, edge.knots, {}, edge.weights};
    for (const AcGePoint2d& p : edge.points) curve.points.emplace_back(p.x, p.y, 0);
    double size = 0;
    for (const AcGePoint3d& p : curve.points) size = std::fmax(size, p.distanceTo(curve.points.front()));
    for (const AcGePoint3d& p : sampleNurbs(curve, 1e-5 * size)) path.lineTo({p.x, p.y});
  }
  void add(const EdgeArc& arc) const {
    addArc(path, pointOf(arc.centre), pointOf(arc.u), pointOf(arc.v), arc.start, arc.sweep);
  }
};

Path pathOf(const HatchLoop& loop) {
  if (loop.type & AcDbHatch::kPolyline) {
    std::vector<PolyVertex> vertices;
    for (const HatchVertex& vertex : loop.vertices) vertices.push_back({pointOf(vertex.at), vertex.bulge});
    return polylinePath(vertices, true);
  }
  Path path;
  for (const HatchEdge& edge : loop.edges) std::visit(PathOfEdges{path}, edge);
  path.close();
  return path;
}

Path boundaryOf(const Groups& groups) {
  const std::vector<HatchLoopAt> loops = loadLoops(groups.all());
  const std::int64_t style = groups.integer(75, AcDbHatch::kNormal);
  const std::int64_t wanted = style == AcDbHatch::kNormal  ? 0
                              : style == AcDbHatch::kOuter ? AcDbHatch::kExternal | AcDbHatch::kOutermost
                                                           : AcDbHatch::kExternal;
  const bool flagged = std::ranges::any_of(loops, [&](const HatchLoopAt& l) { return (l.loop.type & wanted) != 0; });
  Path boundary;
  for (const HatchLoopAt& l : loops)
    if (!flagged || (l.loop.type & wanted)) boundary.append(pathOf(l.loop));
  return boundary;
}

// Each colour is a place (463), an index (63) and, when it isn't of the index, a true colour (421).
std::vector<Colour> gradientColours(std::span<const Group* const> groups) {
  std::vector<Colour> colours;
  auto at = std::ranges::find_if(groups, [](const Group* group) { return group->code() == kGradientColours; });
  for (bool fresh = false; at != groups.end(); ++at) {
    const int code = (*at)->code();
    if (code == kGradientPlace) fresh = true;
    if (code != kGradientIndex && code != kGradientTrue) continue;
    const Colour colour = code == kGradientTrue ? trueColour(static_cast<std::uint32_t>((*at)->integer()))
                                                : aciColour(static_cast<int>((*at)->integer()));
    if (fresh || colours.empty()) colours.push_back(colour);
    else colours.back() = colour;
    fresh = false;
  }
  return colours;
}

}  // namespace

Hatch readHatch(const Groups& groups) {
  Hatch hatch;
  hatch.solid = groups.integer(70, 1) != 0;
  hatch.elevation = groups.real(30);
  hatch.boundary = boundaryOf(groups);
  if (!hatch.solid)
    for (const atelier::PatternLine& line : loadPattern(groups.all()).lines)
      hatch.lines.push_back({line.angle * kDegree, pointOf(line.base), pointOf(line.step), line.dashes});
  if (groups.integer(kGradient) != 0 && groups.has(kGradientColours)) {
    hatch.solid = true;
    hatch.gradient = {std::string(groups.text(kGradientName)), groups.real(kGradientTurn),
                      gradientColours(groups.all())};
  }
  return hatch;
}

}  // namespace atelier::render
