// The reader of hatches: groups mean something only by their order.
// Arcs that run clockwise are stored with their angles negated.
#include "atelier/render/scene/hatch.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/geometry/bspline.h"
#include "atelier/render/shapes/tessellate.h"

namespace atelier::render {

namespace {

constexpr double degree = std::numbers::pi / 180;
// Kinds of loops (group 92) and hatch styles (group 75).
constexpr std::int64_t externalLoop = 1, polylineLoop = 2, outermostLoop = 16;
constexpr std::int64_t everyLoop = 0;
constexpr std::int64_t mostItems = 1'000'000;  // a count beyond it is damage

class Reader {
 public:
  explicit Reader(std::span<const Group* const> groups) : groups_(groups) {}

  bool at(int code) const { return i_ < groups_.size() && groups_[i_]->code() == code; }
  // Skips to the code; false (and nothing skipped) when it does not come before `stop`.
  bool seek(int code, int stop = -1) {
    for (std::size_t k = i_; k < groups_.size() && groups_[k]->code() != stop; ++k)
      if (groups_[k]->code() == code) return i_ = k, true;
    return false;
  }
  // The value of the group when it has that code, which is then passed.
  double real(int code, double missing = 0) { return at(code) ? groups_[i_++]->real() : missing; }
  std::int64_t integer(int code, std::int64_t missing = 0) { return at(code) ? groups_[i_++]->integer() : missing; }
  std::int64_t count(int code) {
    const std::int64_t n = integer(code);
    return n >= 0 && n <= mostItems ? n : 0;
  }
  Pt point(int code) {
    const double x = real(code);
    return {x, real(code + 10)};
  }
  const Group* take() { return i_ < groups_.size() ? groups_[i_++] : nullptr; }

 private:
  std::span<const Group* const> groups_;
  std::size_t i_ = 0;
};

Path polylineOf(Reader& in) {
  const bool bulges = in.integer(72) != 0;
  in.integer(73);  // a boundary is closed whatever it says
  std::vector<PolyVertex> vertices;
  for (std::int64_t n = in.count(93); n > 0 && in.at(10); --n) {
    PolyVertex v;
    v.at = in.point(10);
    if (bulges || in.at(42)) v.bulge = in.real(42);
    vertices.push_back(v);
  }
  return polylinePath(vertices, true);
}

void addSplineEdge(Path& path, Reader& in) {
  Nurbs curve;
  curve.degree = static_cast<int>(in.integer(94, 3));
  const bool rational = in.integer(73) != 0;
  in.integer(74);
  std::int64_t knots = in.count(95);
  const std::int64_t points = in.count(96);
  for (; knots > 0 && in.at(40); --knots) curve.knots.push_back(in.real(40));
  for (std::int64_t n = points; n > 0 && in.at(10); --n) {
    const Pt p = in.point(10);
    curve.points.emplace_back(p.x, p.y, 0);
    if (rational || in.at(42)) curve.weights.push_back(in.real(42, 1));
  }
  for (std::int64_t n = in.count(97); n > 0 && in.at(11); --n) in.point(11);
  for (const int tangent : {12, 13})
    if (in.at(tangent)) in.point(tangent);
  double size = 0;
  for (const AcGePoint3d& p : curve.points) size = std::fmax(size, p.distanceTo(curve.points.front()));
  for (const AcGePoint3d& p : sampleNurbs(curve, 1e-5 * size)) path.lineTo({p.x, p.y});
}

void addArcEdge(Path& path, Reader& in, Pt centre, Pt u, Pt v) {
  double start = in.real(50) * degree, end = in.real(51) * degree;
  const bool counterClockwise = in.integer(73, 1) != 0;
  double sweep = end - start;
  if (std::abs(sweep) > 2 * std::numbers::pi) sweep = std::fmod(sweep, 2 * std::numbers::pi);
  if (sweep <= 0) sweep += 2 * std::numbers::pi;
  if (counterClockwise) addArc(path, centre, u, v, start, sweep);
  else addArc(path, centre, u, v, -start, -sweep);
}

bool addEdge(Path& path, Reader& in) {
  if (!in.at(72)) return false;
  switch (in.integer(72)) {
    case 1: {
      const Pt a = in.point(10);
      path.lineTo(a);
      path.lineTo(in.point(11));
      return true;
    }
    case 2: {
      const Pt centre = in.point(10);
      const double r = in.real(40);
      addArcEdge(path, in, centre, {r, 0}, {0, r});
      return true;
    }
    case 3: {
      const Pt centre = in.point(10), major = in.point(11);
      const double ratio = in.real(40, 1);
      addArcEdge(path, in, centre, major, ratio * Pt{-major.y, major.x});
      return true;
    }
    case 4: addSplineEdge(path, in); return true;
    default: return false;
  }
}

Path edgesOf(Reader& in) {
  Path path;
  for (std::int64_t n = in.count(93); n > 0 && addEdge(path, in); --n) {}
  path.close();
  return path;
}

struct Loop {
  std::int64_t kind;
  Path path;
};

std::vector<PatternLine> linesOf(Reader& in) {
  std::vector<PatternLine> out;
  for (std::int64_t n = in.count(78); n > 0 && in.at(53); --n) {
    PatternLine line;
    line.angle = in.real(53) * degree;
    const double x = in.real(43);
    line.base = {x, in.real(44)};
    const double dx = in.real(45);
    line.step = {dx, in.real(46)};
    for (std::int64_t dashes = in.count(79); dashes > 0 && in.at(49); --dashes) line.dashes.push_back(in.real(49));
    out.push_back(std::move(line));
  }
  return out;
}

}  // namespace

Hatch readHatch(const Groups& groups) {
  Hatch hatch;
  hatch.solid = groups.integer(70, 1) != 0;
  hatch.elevation = groups.real(30);
  Reader in(groups.all());
  std::vector<Loop> loops;
  if (!in.seek(91)) return hatch;
  for (std::int64_t n = in.count(91); n > 0 && in.seek(92, 75); --n) {
    const std::int64_t kind = in.integer(92);
    loops.push_back({kind, kind & polylineLoop ? polylineOf(in) : edgesOf(in)});
  }
  const std::int64_t style = in.seek(75) ? in.integer(75) : everyLoop;
  const std::int64_t wanted = style == everyLoop ? 0 : style == 1 ? externalLoop | outermostLoop : externalLoop;
  const bool flagged = std::ranges::any_of(loops, [&](const Loop& l) { return (l.kind & wanted) != 0; });
  for (const Loop& loop : loops)
    if (!flagged || (loop.kind & wanted)) hatch.boundary.append(loop.path);
  if (!hatch.solid && in.seek(78)) hatch.lines = linesOf(in);
  if (groups.integer(450) != 0 && in.seek(453)) {
    hatch.solid = true;
    while (const Group* group = in.take())
      if (group->code() == 421 || (group->code() == 63 && !hatch.gradientColour)) {
        hatch.gradientColour = group;
        if (group->code() == 421) break;
      }
  }
  return hatch;
}

}  // namespace atelier::render
