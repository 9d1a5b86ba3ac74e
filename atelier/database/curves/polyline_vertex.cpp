// Polylines whose vertices are entities of their own: two- and three-dimensional ones.
// Vertices are the children of the polyline's stub, in order, with the end mark last.
#include <optional>

#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "hote/adaptation.h"
#include "hote/dbpl.h"

using namespace atelier;

namespace {

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }

// The section of the record depends on what the vertex belongs to.
std::string_view vertexSection(const Record& record) {
  for (const std::string_view name :
       {"AcDb2dVertex", "AcDb3dPolylineVertex", "AcDbPolyFaceMeshVertex", "AcDbPolygonMeshVertex"})
    if (record.section(name).first != Record::npos) return name;
  return "AcDb2dVertex";
}

AcDbObjectIterator* vertices(const AcDbObject* polyline) {
  AcDbObjectIdArray ids;
  const AcDbStub* stub = stubOf(polyline);
  if (stub && stub->children)
    for (AcDbStub* child : *stub->children)
      if (!child->is(AcDbStub::kErased) && stub->database->typeName(*child) == "VERTEX") ids.append(idOf(child));
  return new AcDbObjectIterator(ids);
}

Acad::ErrorStatus append(AcDbObject* polyline, AcDbVertex* vertex) {
  AcDbStub* stub = stubOf(polyline);
  if (!stub) return Acad::eNoDatabase;
  if (!AcDbImpObject::of(polyline).writable()) return Acad::eNotOpenForWrite;
  stub->database->adoptFollower(*vertex, *stub);
  return Acad::eOk;
}

// Opens each vertex in turn.
template <class VISIT>
void eachVertex(const AcDbObject* polyline, AcDb::OpenMode mode, VISIT visit) {
  const AcDbObjectPointer<AcDbObject> held(polyline->objectId());  // so that it isn't dropped from memory
  const std::unique_ptr<AcDbObjectIterator> it(vertices(polyline));
  for (; !it->done(); it->step()) {
    const AcDbObjectPointer<AcDbVertex> vertex(it->objectId(), mode);
    if (vertex.openStatus() == Acad::eOk) visit(*vertex.object());
  }
}

Acad::ErrorStatus given(const AcDbExtents& box, AcDbExtents& extents) {
  if (adaptation::isEmpty(box)) return Acad::eInvalidExtents;
  extents = box;
  return Acad::eOk;
}

}  // namespace

void atelier::putInSpace(Record& record, std::string_view flat, std::string_view spatial, std::int64_t flag) {
  if (record.section(flat).first == Record::npos) return;
  for (Group& group : record.groups) {
    if (group.code() == 100 && group.text() == flat) group = Group::text(100, std::string(spatial));
    if (group.code() == 70) group = Group::integer(70, group.integer() | flag);
  }
}

AcDbVertex::AcDbVertex() { initRecord(*this, "VERTEX"); }
AcGePoint3d AcDbVertex::position() const { return recordOf(this).point(pointField(vertexSection(recordOf(this)), 10)); }
Acad::ErrorStatus AcDbVertex::setPosition(const AcGePoint3d& p) {
  return AcDbImpObject::of(this).setPoint(pointField(vertexSection(recordOf(this)), 10), p);
}
double AcDbVertex::bulge() const { return recordOf(this).real(realField(vertexSection(recordOf(this)), 42)); }
double AcDbVertex::startWidth() const { return recordOf(this).real(realField(vertexSection(recordOf(this)), 40)); }
double AcDbVertex::endWidth() const { return recordOf(this).real(realField(vertexSection(recordOf(this)), 41)); }
int AcDbVertex::flags() const {
  return static_cast<int>(recordOf(this).integer(integerField(vertexSection(recordOf(this)), 70)));
}
AcDb::Vertex2dType AcDbVertex::vertexType() const {
  const int flag = flags();
  if (flag & VertexFlags::kFrame) return AcDb::k2dSplineCtlVertex;
  if (flag & VertexFlags::kSplineFit) return AcDb::k2dSplineFitVertex;
  return flag & VertexFlags::kCurveFit ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}
Acad::ErrorStatus AcDbVertex::transformBy(const AcGeMatrix3d& m) { return setPosition(m * position()); }

AcDb2dPolyline::AcDb2dPolyline() { initRecord(*this, "POLYLINE"); }
AcDb::Poly2dType AcDb2dPolyline::polyType() const {
  const std::int64_t flags = recordOf(this).integer(integerField("AcDb2dPolyline", 70));
  if (flags & PolylineFlags::kCurveFit) return AcDb::k2dFitCurvePoly;
  if (!(flags & PolylineFlags::kSplineFit)) return AcDb::k2dSimplePoly;
  return recordOf(this).integer(integerField("AcDb2dPolyline", 75)) == Smoothing::kCubic ? AcDb::k2dCubicSplinePoly
                                                                                         : AcDb::k2dQuadSplinePoly;
}
bool AcDb2dPolyline::isClosed() const {
  return recordOf(this).integer(integerField("AcDb2dPolyline", 70)) & PolylineFlags::kClosed;
}
double AcDb2dPolyline::elevation() const { return recordOf(this).point(pointField("AcDb2dPolyline", 10)).z; }
AcGeVector3d AcDb2dPolyline::normal() const { return normalOf(recordOf(this), "AcDb2dPolyline"); }
AcDbObjectIterator* AcDb2dPolyline::vertexIterator() const { return vertices(this); }
Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const {
  return acdbOpenObject<AcDbVertex>(vertex, id, mode, openErased);
}
Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbVertex* vertex) { return append(this, vertex); }
Acad::ErrorStatus AcDb2dPolyline::subGetGeomExtents(AcDbExtents& extents) const {
  AcDbExtents box;
  std::optional<AcGePoint2d> first, before;
  double bulge = 0;
  const auto to = [&](const AcGePoint2d& p) {
    box.addExt(bulgeExtents(before.value_or(p), p, bulge, elevation(), normal()));
  };
  eachVertex(this, AcDb::kForRead, [&](const AcDbVertex& v) {
    const AcGePoint2d p(v.position().x, v.position().y);
    to(p);
    if (!first) first = p;
    before = p;
    bulge = v.bulge();
  });
  if (first && isClosed()) to(*first);
  return given(box, extents);
}
Acad::ErrorStatus AcDb2dPolyline::transformBy(const AcGeMatrix3d& m) {
  AcDbImpObject& imp = AcDbImpObject::of(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  const AcGeVector3d before = normal();
  const double height = elevation();
  const PlaneChange plane(m, before);
  double newHeight = height;
  eachVertex(this, AcDb::kForWrite, [&](AcDbVertex& v) {
    const AcGePoint3d p = v.position();
    const AcGePoint3d moved = toPlane(m * toWorld(AcGePoint3d(p.x, p.y, height), before), plane.normal);
    v.setPosition(moved);
    newHeight = moved.z;
    if (plane.mirrored && v.bulge() != 0)
      AcDbImpObject::of(&v).setReal(realField(vertexSection(recordOf(&v)), 42), -v.bulge());
  });
  if (newHeight != height) imp.setPoint(pointField("AcDb2dPolyline", 10), AcGePoint3d(0, 0, newHeight));
  if (!isWorldPlane(plane.normal)) imp.setPoint(normalField("AcDb2dPolyline"), AcGePoint3d() + plane.normal);
  return Acad::eOk;
}

AcDb3dPolyline::AcDb3dPolyline() {
  const bool fresh = !pendingRecordNow();
  initRecord(*this, "POLYLINE");
  if (fresh) putInSpace(AcDbImpObject::of(this).record, "AcDb2dPolyline", "AcDb3dPolyline", PolylineFlags::kSpace);
}
AcDb::Poly3dType AcDb3dPolyline::polyType() const {
  const std::int64_t smooth = recordOf(this).integer(integerField("AcDb3dPolyline", 75));
  return smooth == Smoothing::kCubic       ? AcDb::k3dCubicSplinePoly
         : smooth == Smoothing::kQuadratic ? AcDb::k3dQuadSplinePoly
                                           : AcDb::k3dSimplePoly;
}
bool AcDb3dPolyline::isClosed() const {
  return recordOf(this).integer(integerField("AcDb3dPolyline", 70)) & PolylineFlags::kClosed;
}
AcDbObjectIterator* AcDb3dPolyline::vertexIterator() const { return vertices(this); }
Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbVertex* vertex) {
  putInSpace(AcDbImpObject::of(vertex).record, "AcDb2dVertex", "AcDb3dPolylineVertex", VertexFlags::kSpace);
  return append(this, vertex);
}
Acad::ErrorStatus AcDb3dPolyline::subGetGeomExtents(AcDbExtents& extents) const {
  AcDbExtents box;
  eachVertex(this, AcDb::kForRead, [&](const AcDbVertex& v) { box.addPoint(v.position()); });
  return given(box, extents);
}
Acad::ErrorStatus AcDb3dPolyline::transformBy(const AcGeMatrix3d& m) {
  if (!AcDbImpObject::of(this).writable()) return Acad::eNotOpenForWrite;
  eachVertex(this, AcDb::kForWrite, [&](AcDbVertex& v) { v.transformBy(m); });
  return Acad::eOk;
}
