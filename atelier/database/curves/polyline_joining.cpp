// Makes lightweight polylines from old ones, and joins them with curves that touch them.
// A curve to join is first expressed in the polyline's own plane.
#include <algorithm>

#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/objects/imp_object.h"

using namespace atelier;

namespace {

using Vertices = std::vector<PolylineVertex>;

PolylineVertex vertexOf(const DrawnVertex& v) {
  return {AcGePoint2d(v.position.x, v.position.y), v.bulge, v.startWidth, v.endWidth, 0};
}

Vertices flipped(const Vertices& list) {
  Vertices out;
  for (std::size_t i = list.size(); i-- > 0;) {
    PolylineVertex v{list[i].point};
    if (i > 0) {
      const PolylineVertex& piece = list[i - 1];
      v.bulge = -piece.bulge, v.startWidth = piece.endWidth, v.endWidth = piece.startWidth;
    }
    out.push_back(v);
  }
  return out;
}

// The vertices of a curve in the plane with that normal and elevation; empty for a class without vertices, or a curve
// that doesn't lie in the plane.
Vertices inPlane(const AcDbCurve& curve, const AcGeVector3d& normal, double elevation, double tolerance) {
  Vertices out;
  bool flat = true;
  const auto place = [&](const AcGePoint3d& world) {
    const AcGePoint3d p = toPlane(world, normal);
    flat = flat && std::abs(p.z - elevation) <= tolerance;
    return AcGePoint2d(p.x, p.y);
  };
  const auto sameWay = [&](const AcGeVector3d& other) {
    return normal.normal().dotProduct(other.normal()) > 0 ? 1.0 : -1.0;
  };
  if (const auto* line = AcDbLine::cast(&curve)) {
    out = {{place(line->startPoint())}, {place(line->endPoint())}};
  } else if (const auto* arc = AcDbArc::cast(&curve)) {
    AcGePoint3d from, to;
    arc->getStartPoint(from);
    arc->getEndPoint(to);
    out = {{place(from), std::tan(arc->totalAngle() / 4) * sameWay(arc->normal())}, {place(to)}};
    place(arc->center());
    flat = flat && normal.normal().crossProduct(arc->normal().normal()).length() <= 1e-9;
  } else if (const auto* polyline = AcDbPolyline::cast(&curve); polyline && !polyline->isClosed()) {
    flat = normal.normal().crossProduct(polyline->normal().normal()).length() <= 1e-9;
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
      AcGePoint3d p;
      polyline->getPointAt(i, p);
      PolylineVertex v = verticesOf(polyline).list[i];
      v.point = place(p);
      v.bulge *= sameWay(polyline->normal());
      polyline->getWidthsAt(i, v.startWidth, v.endWidth);
      out.push_back(v);
    }
  }
  return flat ? out : Vertices{};
}

// Appends the second list to the first, whose last vertex is the first vertex of the second.
void chain(Vertices& first, const Vertices& second) {
  first.pop_back();
  first.insert(first.end(), second.begin(), second.end());
}

}  // namespace

Acad::ErrorStatus AcDbPolyline::convertFrom(AcDbEntity*& source, bool transferId) {
  const auto* old = AcDb2dPolyline::cast(source);
  if (!old || old->polyType() == AcDb::k2dQuadSplinePoly || old->polyType() == AcDb::k2dCubicSplinePoly)
    return Acad::eNotApplicable;
  if (transferId) return Acad::eNotImplementedYet;
  const auto vertices = drawnVertices(*old);
  if (vertices.empty()) return Acad::eDegenerateGeometry;
  PolylineVertices* mine = changedVertices(this);
  if (!mine) return Acad::eNotOpenForWrite;
  mine->list.clear();
  for (const DrawnVertex& v : vertices) mine->list.push_back(vertexOf(v));
  setPropertiesFrom(old);
  setClosed(old->isClosed());
  setElevation(old->elevation());
  return isWorldPlane(old->normal()) ? Acad::eOk : setNormal(old->normal());
}

Acad::ErrorStatus AcDbPolyline::joinWith(const AcDbEntity* other, double tolerance) {
  const auto* curve = AcDbCurve::cast(other);
  if (!curve || (!AcDbLine::cast(curve) && !AcDbArc::cast(curve) && !AcDbPolyline::cast(curve)))
    return Acad::eNotApplicable;
  if (curve == this || isClosed()) return Acad::eInvalidInput;
  Vertices added = inPlane(*curve, normal(), elevation(), tolerance);
  const Vertices& present = verticesOf(this).list;
  if (added.size() < 2 || present.size() < 2) return Acad::eInvalidInput;
  const auto touch = [&](const PolylineVertex& a, const PolylineVertex& b) {
    return a.point.distanceTo(b.point) <= tolerance;
  };
  const bool atEnd = touch(present.back(), added.front()) || touch(present.back(), added.back());
  const bool atStart = touch(present.front(), added.front()) || touch(present.front(), added.back());
  if (!atEnd && !atStart) return Acad::eInvalidInput;
  const bool turned = atEnd ? !touch(present.back(), added.front()) : !touch(present.front(), added.back());
  if (turned) added = flipped(added);
  PolylineVertices* vertices = changedVertices(this);
  if (!vertices) return Acad::eNotOpenForWrite;
  Vertices& list = vertices->list;
  if (atEnd) {
    chain(list, added);
  } else {
    chain(added, list);
    list = std::move(added);
  }
  if (list.size() > 2 && touch(list.front(), list.back())) {
    list.pop_back();
    setClosed(true);
  }
  return Acad::eOk;
}
