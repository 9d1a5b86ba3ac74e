// Polylines, lightweight and with vertex entities: widths, bulges, curve fits, meshes.
// A line type starts again at each vertex unless the polyline's flag 128 says that it continues.
#include <algorithm>
#include <cmath>

#include "atelier/database/records/flags.h"
#include "atelier/render/scene/scene_builder.h"
#include "atelier/render/shapes/tessellate.h"

namespace atelier::render {

namespace {

// Flags of polylines and of their vertices (group 70).

std::vector<PolyVertex> lightVertices(const Groups& g) {
  std::vector<PolyVertex> out;
  const double constant = g.real(43);
  for (const Group* group : g.all()) {
    if (group->code() == 10) {
      out.push_back({{group->real(), 0}, 0, constant, constant});
      continue;
    }
    if (out.empty()) continue;
    switch (group->code()) {
      case 20: out.back().at.y = group->real(); break;
      case 40: out.back().startWidth = group->real(); break;
      case 41: out.back().endWidth = group->real(); break;
      case 42: out.back().bulge = group->real(); break;
      default: break;
    }
  }
  return out;
}

std::vector<PolyVertex> heavyVertices(SceneBuilder& scene, const Entity& e) {
  std::vector<PolyVertex> out;
  for (AcDbStub* stub : scene.children(e.stub)) {
    const Groups g = scene.groupsOf(*stub);
    if (g.text(0) != "VERTEX" || (g.integer(70) & VertexFlags::kFrame)) continue;
    const AcGePoint3d p = g.point(10);
    out.push_back({{p.x, p.y}, g.real(42), g.real(40, e.groups.real(40)), g.real(41, e.groups.real(41))});
  }
  return out;
}

void planePolyline(SceneBuilder& scene, const Entity& e, const std::vector<PolyVertex>& vertices, double elevation) {
  const std::int64_t flags = e.groups.integer(70);
  const bool closed = (flags & PolylineFlags::kClosed) != 0;
  const Affine map = e.plane(elevation);
  const bool wide = isWide(vertices, closed), filled = scene.database().header.integer("$FILLMODE", 1) != 0;
  if (wide && filled) scene.fill(e, wideArea(vertices, closed).mapped(map), false);
  else if (wide) scene.stroke(e, wideArea(vertices, closed).mapped(map));
  const auto thin = [](const PolyVertex& v) { return v.startWidth <= 0 && v.endWidth <= 0; };
  if (wide && std::ranges::none_of(vertices, thin)) return;

  if (!wide && (!e.look.pattern || (flags & PolylineFlags::kRunsThrough)))
    return scene.stroke(e, polylinePath(vertices, closed).mapped(map));
  // The other segments; those with a width have been drawn as areas.
  Path path;
  const std::size_t n = vertices.size(), segments = n < 2 ? 0 : closed ? n : n - 1;
  for (std::size_t i = 0; i < segments; ++i) {
    if (wide && !thin(vertices[i])) continue;
    path.moveTo(vertices[i].at);
    addBulge(path, vertices[i].at, vertices[(i + 1) % n].at, vertices[i].bulge);
  }
  scene.stroke(e, path.mapped(map));
}

void spacePolyline(SceneBuilder& scene, const Entity& e) {
  Path path;
  for (AcDbStub* stub : scene.children(e.stub)) {
    const Groups g = scene.groupsOf(*stub);
    if (g.text(0) == "VERTEX" && !(g.integer(70) & VertexFlags::kFrame)) path.lineTo(e.world(g.point(10)));
  }
  if (e.groups.integer(70) & PolylineFlags::kClosed) path.close();
  scene.stroke(e, std::move(path));
}

// The lines of an m by n mesh of points, row after row.
void drawMesh(SceneBuilder& scene, const Entity& e) {
  std::vector<Pt> points;
  for (AcDbStub* stub : scene.children(e.stub)) {
    const Groups g = scene.groupsOf(*stub);
    if (g.text(0) == "VERTEX" && !(g.integer(70) & VertexFlags::kFrame)) points.push_back(e.world(g.point(10)));
  }
  // A smoothed mesh has its own density in groups 73 and 74.
  const bool smooth = e.groups.integer(75) != 0;
  const auto rows = e.groups.integer(smooth ? 73 : 71), columns = e.groups.integer(smooth ? 74 : 72);
  if (rows < 1 || columns < 1 || rows > 32767 || columns > 32767 ||
      static_cast<std::size_t>(rows * columns) > points.size())
    return scene.cannotShow("maillage polygonal incomplet");
  const auto at = [&](std::int64_t r, std::int64_t c) { return points[static_cast<std::size_t>(r * columns + c)]; };
  Path path;
  for (std::int64_t r = 0; r < rows; ++r) {
    path.moveTo(at(r, 0));
    for (std::int64_t c = 1; c < columns; ++c) path.lineTo(at(r, c));
    if (e.groups.integer(70) & PolylineFlags::kMeshClosedAcross) path.close();
  }
  for (std::int64_t c = 0; c < columns; ++c) {
    path.moveTo(at(0, c));
    for (std::int64_t r = 1; r < rows; ++r) path.lineTo(at(r, c));
    if (e.groups.integer(70) & PolylineFlags::kClosed) path.close();
  }
  scene.stroke(e, std::move(path));
}

// First the vertices, then faces with the numbers of their vertices, from 1; a negative one hides the next edge.
void drawPolyface(SceneBuilder& scene, const Entity& e) {
  std::vector<Pt> points;
  Path path;
  for (AcDbStub* stub : scene.children(e.stub)) {
    const Groups g = scene.groupsOf(*stub);
    const std::int64_t flags = g.integer(70);
    if (g.text(0) != "VERTEX") continue;
    if (flags & VertexFlags::kPlaced) points.push_back(e.world(g.point(10)));
    if (!(flags & VertexFlags::kFace) || (flags & VertexFlags::kPlaced)) continue;
    std::vector<std::int64_t> corners;
    for (int code = 71; code <= 74; ++code)
      if (const std::int64_t corner = g.integer(code); corner != 0) corners.push_back(corner);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const auto a = static_cast<std::size_t>(std::abs(corners[i])) - 1;
      const auto b = static_cast<std::size_t>(std::abs(corners[(i + 1) % corners.size()])) - 1;
      if (corners[i] < 0 || a >= points.size() || b >= points.size()) continue;
      path.moveTo(points[a]);
      path.lineTo(points[b]);
    }
  }
  scene.stroke(e, std::move(path));
}

}  // namespace

void drawLwPolyline(SceneBuilder& scene, const Entity& e) {
  planePolyline(scene, e, lightVertices(e.groups), e.groups.real(38));
}

void drawPolyline(SceneBuilder& scene, const Entity& e) {
  const std::int64_t flags = e.groups.integer(70);
  if (flags & PolylineFlags::kSpace) return spacePolyline(scene, e);
  if (flags & PolylineFlags::kMesh) return drawMesh(scene, e);
  if (flags & PolylineFlags::kPolyface) return drawPolyface(scene, e);
  planePolyline(scene, e, heavyVertices(scene, e), e.groups.point(10).z);
}

}  // namespace atelier::render
