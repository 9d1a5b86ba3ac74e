// Old polylines count as the light ones that they would be.
#include "atelier/shaping/boundaries.h"

#include <algorithm>
#include <cmath>

#include "atelier/database/curves/curve_geometry.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

PolylineVertex vertexAt(const AcGePoint3d& p, double bulge) {
  PolylineVertex vertex;
  vertex.point = {p.x, p.y};
  vertex.bulge = bulge;
  return vertex;
}

Boundary pathOf(const AcDbPolyline& polyline) {
  Boundary path;
  path.closed = polyline.isClosed();
  for (unsigned i = 0; i < polyline.numVerts(); ++i) {
    AcGePoint3d p;
    double bulge = 0;
    polyline.getPointAt(i, p);
    polyline.getBulgeAt(i, bulge);
    path.vertices.push_back(vertexAt(p, bulge));
  }
  // A last vertex on the first closes it as well.
  if (path.vertices.size() > 2 && path.vertices.front().point.distanceTo(path.vertices.back().point) < 1e-9) {
    path.vertices.pop_back();
    path.closed = true;
  }
  return path;
}

Boundary reversed(const Boundary& path) {
  Boundary back = path;
  std::ranges::reverse(back.vertices);
  for (std::size_t i = 0; i + 1 < back.vertices.size(); ++i)
    back.vertices[i].bulge = -path.vertices[path.vertices.size() - 2 - i].bulge;
  back.vertices.back().bulge = 0;
  return back;
}

}  // namespace

std::optional<Boundary> boundaryOf(const AcDbEntity& entity) {
  if (const auto* line = AcDbLine::cast(&entity))
    return Boundary{{vertexAt(line->startPoint(), 0), vertexAt(line->endPoint(), 0)}, false};
  if (const auto* light = AcDbPolyline::cast(&entity))
    return light->normal().z > 0 ? std::optional(pathOf(*light)) : std::nullopt;
  if (const auto* old = AcDb2dPolyline::cast(&entity)) return pathOf(*lightPolyline(*old));
  if (const auto* circle = AcDbCircle::cast(&entity)) {
    const AcGeVector3d r(circle->radius(), 0, 0);
    return Boundary{{vertexAt(circle->center() + r, 1), vertexAt(circle->center() - r, 1)}, true};
  }
  if (const auto* arc = AcDbArc::cast(&entity); arc && arc->normal().z > 0) {
    AcGePoint3d start, end;
    arc->getStartPoint(start);
    arc->getEndPoint(end);
    return Boundary{{vertexAt(start, std::tan(arc->totalAngle() / 4)), vertexAt(end, 0)}, false};
  }
  return std::nullopt;
}

bool closeBoundaries(std::vector<Boundary>& paths) {
  constexpr double kTouch = 1e-6;
  std::vector<Boundary> loops, open;
  for (Boundary& path : paths) (path.closed ? loops : open).push_back(std::move(path));
  while (!open.empty()) {
    Boundary chain = std::move(open.back());
    open.pop_back();
    while (chain.vertices.front().point.distanceTo(chain.vertices.back().point) > kTouch) {
      const AcGePoint2d end = chain.vertices.back().point;
      const auto next = std::ranges::find_if(open, [&](const Boundary& p) {
        return p.vertices.front().point.distanceTo(end) <= kTouch || p.vertices.back().point.distanceTo(end) <= kTouch;
      });
      if (next == open.end()) return false;
      const Boundary piece = next->vertices.front().point.distanceTo(end) <= kTouch ? *next : reversed(*next);
      open.erase(next);
      chain.vertices.pop_back();
      chain.vertices.insert(chain.vertices.end(), piece.vertices.begin(), piece.vertices.end());
    }
    chain.vertices.pop_back();
    chain.closed = true;
    loops.push_back(std::move(chain));
  }
  paths = std::move(loops);
  return true;
}

}  // namespace atelier
