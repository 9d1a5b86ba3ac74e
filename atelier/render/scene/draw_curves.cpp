// Lines, arcs, ellipses, splines, points, endless lines, and the small filled or framed faces.
// Points of lines, ellipses, splines and faces are in world coordinates, those of circles and solids in their plane.
#include <cmath>
#include <numbers>

#include "atelier/database/records/flags.h"
#include "atelier/geometry/bspline.h"
#include "atelier/geometry/turns.h"
#include "atelier/render/scene/scene_builder.h"
#include "atelier/render/shapes/tessellate.h"

namespace atelier::render {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
// Chord bound of splines, as a share of their size: invisible when the curve fills an A0 sheet.
constexpr double kSplineChord = 5e-6;

Pt planePoint(const AcGePoint3d& p) { return {p.x, p.y}; }

Pt direction(const Entity& e, const AcGeVector3d& v) {
  const AcGeVector3d w = e.at.toWorld * v;
  return {w.x, w.y};
}

Nurbs nurbsOf(const Groups& g) {
  Nurbs curve;
  curve.degree = static_cast<int>(g.integer(71, 3));
  curve.points = g.points(10);
  curve.knots = g.reals(40);
  curve.weights = g.reals(41);
  if (curve.points.empty()) return interpolateNurbs(g.points(11), (g.integer(70) & SplineFlags::kClosed) != 0);
  return curve;
}

double sizeOf(const std::vector<AcGePoint3d>& points) {
  double size = 0;
  for (const AcGePoint3d& p : points) size = std::fmax(size, p.distanceTo(points.front()));
  return size;
}

}  // namespace

void drawLine(SceneBuilder& scene, const Entity& e) {
  Path path;
  path.moveTo(e.world(e.groups.point(10)));
  path.lineTo(e.world(e.groups.point(11)));
  scene.stroke(e, std::move(path));
}

void drawCircle(SceneBuilder& scene, const Entity& e) {
  const AcGePoint3d centre = e.groups.point(10);
  const double r = e.groups.real(40);
  Path path;
  addEllipse(path, planePoint(centre), {r, 0}, {0, r});
  scene.stroke(e, path.mapped(e.plane(centre.z)));
}

void drawArc(SceneBuilder& scene, const Entity& e) {
  const AcGePoint3d centre = e.groups.point(10);
  const double r = e.groups.real(40), start = e.groups.radians(50), end = e.groups.radians(51);
  Path path;
  addArc(path, planePoint(centre), {r, 0}, {0, r}, start, sweepBetween(start, end));
  scene.stroke(e, path.mapped(e.plane(centre.z)));
}

void drawEllipse(SceneBuilder& scene, const Entity& e) {
  const AcGeVector3d major = e.groups.point(11).asVector(), normal = e.groups.normal().normal();
  const AcGeVector3d minor = normal.crossProduct(major) * e.groups.real(40, 1);
  const Pt centre = e.world(e.groups.point(10)), u = direction(e, major), v = direction(e, minor);
  const double start = e.groups.real(41, 0), end = e.groups.real(42, kTurn), sweep = sweepBetween(start, end);
  Path path;
  if (sweep > kTurn - 1e-9) addEllipse(path, centre, u, v);
  else addArc(path, centre, u, v, start, sweep);
  scene.stroke(e, std::move(path));
}

void drawSpline(SceneBuilder& scene, const Entity& e) {
  const Nurbs curve = nurbsOf(e.groups);
  const auto samples = curve.points.empty() ? curve.points : sampleNurbs(curve, kSplineChord * sizeOf(curve.points));
  if (samples.empty()) return scene.cannotShow("spline sans courbe (nœuds ou points incohérents)");
  Path path;
  for (const AcGePoint3d& p : samples) path.lineTo(e.world(p));
  scene.stroke(e, std::move(path));
}

void drawPoint(SceneBuilder& scene, const Entity& e) {
  const HeaderVariables& header = scene.database().header;
  const int mode = static_cast<int>(header.integer("$PDMODE", 0));
  // A negative size is a share of the screen: on paper the fixed size is used.
  const double size = std::fmax(header.real("$PDSIZE", 0), 0);
  if ((mode & 127) == 1) return;
  scene.add(e, Dot{e.world(e.groups.point(10)), scene.pen(e), mode, size});
}

void drawUnbounded(SceneBuilder& scene, const Entity& e) {
  const Pt along = direction(e, e.groups.point(11).asVector());
  if (along.x == 0 && along.y == 0) return;  // seen from its end
  scene.add(e, Unbounded{e.world(e.groups.point(10)), along, e.record.type() == "XLINE", scene.pen(e)});
}

void drawSolid(SceneBuilder& scene, const Entity& e) {
  const AcGePoint3d third = e.groups.point(12);
  Path path;
  // The corners are stored in a zigzag: on the outline the fourth comes before the third.
  for (const AcGePoint3d& corner :
       {e.groups.point(10), e.groups.point(11), e.groups.has(13) ? e.groups.point(13) : third, third})
    path.lineTo(planePoint(corner));
  path.close();
  path = path.mapped(e.plane(third.z));
  if (scene.database().header.integer("$FILLMODE", 1) != 0) scene.fill(e, std::move(path), true);
  else scene.stroke(e, std::move(path));
}

void drawFace(SceneBuilder& scene, const Entity& e) {
  const AcGePoint3d third = e.groups.point(12);
  const AcGePoint3d corners[] = {e.groups.point(10), e.groups.point(11), third,
                                 e.groups.has(13) ? e.groups.point(13) : third};
  const std::int64_t hiddenEdges = e.groups.integer(70);
  Path path;
  for (int i = 0; i < 4; ++i) {
    const AcGePoint3d &a = corners[i], &b = corners[(i + 1) % 4];
    if ((hiddenEdges >> i & 1) || a.isEqualTo(b)) continue;
    path.moveTo(e.world(a));
    path.lineTo(e.world(b));
  }
  scene.stroke(e, std::move(path));
}

}  // namespace atelier::render
