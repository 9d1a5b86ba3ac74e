// The lightweight polyline.
// Its vertices repeat the same codes, so they are decoded together and written together.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbpl.h"

using namespace atelier;

namespace {

constexpr std::string_view kPolyline = "AcDbPolyline";
constexpr Field kCount = integerField(kPolyline, 90), kFlags = integerField(kPolyline, 70),
                kWidth = realField(kPolyline, 43), kElevation = realField(kPolyline, 38);

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }

bool isVertexCode(int code) { return code == 10 || code == 20 || code == 40 || code == 41 || code == 42 || code == 91; }

}  // namespace

namespace atelier {

PolylineVertices& verticesOf(const AcDbObject* polyline) {
  AcDbImpObject& imp = AcDbImpObject::of(polyline);
  if (imp.decoded) return static_cast<PolylineVertices&>(*imp.decoded);
  auto vertices = std::make_unique<PolylineVertices>();
  auto [begin, end] = imp.record.section(kPolyline);
  if (begin == Record::npos) begin = 0, end = imp.record.xdataStart();
  for (std::size_t i = begin; i < end; ++i) {
    const Group& group = imp.record.groups[i];
    if (group.code() == 10) vertices->list.push_back({AcGePoint2d(group.real(), 0)});
    if (vertices->list.empty()) continue;
    PolylineVertex& last = vertices->list.back();
    switch (group.code()) {
      case 20: last.point.y = group.real(); break;
      case 40: last.startWidth = group.real(); break;
      case 41: last.endWidth = group.real(); break;
      case 42: last.bulge = group.real(); break;
      case 91: last.identifier = group.integer(); break;
      default: break;
    }
  }
  vertices->normal = normalOf(imp.record, kPolyline);
  vertices->elevation = imp.record.real(kElevation);
  if (const Group* width = imp.record.get(kWidth)) vertices->constantWidth = width->real();
  vertices->closed = imp.record.integer(kFlags) & PolylineFlags::kClosed;
  PolylineVertices& result = *vertices;
  imp.decoded = std::move(vertices);
  return result;
}

void PolylineVertices::encode(Record& record) const {
  record.setInteger(kCount, static_cast<std::int64_t>(list.size()));
  auto [begin, end] = record.section(kPolyline);
  if (begin == Record::npos) begin = 1, end = record.xdataStart();
  const auto at = [&](std::size_t i) { return record.groups.begin() + static_cast<std::ptrdiff_t>(i); };
  std::size_t place = begin;
  while (place < end && record.groups[place].code() != 10) ++place;
  std::size_t after = place;
  while (after < end && isVertexCode(record.groups[after].code())) ++after;
  if (place == end) {  // no vertex yet: before a trailing normal
    const std::size_t direction = record.find(normalField(kPolyline));
    place = after = direction == Record::npos ? end : direction;
  }
  std::vector<Group> groups;
  for (const PolylineVertex& v : list) {
    groups.push_back(Group::real(10, v.point.x));
    groups.push_back(Group::real(20, v.point.y));
    if (v.identifier != 0) groups.push_back(Group::integer(91, v.identifier));
    groups.push_back(Group::real(40, v.startWidth));
    groups.push_back(Group::real(41, v.endWidth));
    groups.push_back(Group::real(42, v.bulge));
  }
  record.groups.erase(at(place), at(after));
  record.groups.insert(at(place), groups.begin(), groups.end());
}

PolylineVertices* changedVertices(AcDbObject* polyline) {
  if (!AcDbImpObject::of(polyline).writable()) return nullptr;
  PolylineVertices& vertices = verticesOf(polyline);
  vertices.changed = true;
  vertices.curve.reset();
  return &vertices;
}

BulgeArc bulgeArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
  BulgeArc arc;
  const AcGeVector2d chord = to - from;
  const double length = chord.length();
  if (bulge == 0 || length == 0) return arc;
  // Sagitta = bulge * chord / 2; radius and centre follow.
  arc.radius = length * (1 + bulge * bulge) / (4 * std::abs(bulge));
  const double toCentre = length * (1 - bulge * bulge) / (4 * bulge);
  arc.centre = from + chord * 0.5 + chord.perpVector() * (toCentre / length);
  arc.startAngle = (from - arc.centre).angle();
  arc.sweep = 4 * std::atan(bulge);
  return arc;
}

}  // namespace atelier

namespace {

// Calls the visitor with the two vertices of each piece.
template <class VISIT>
void eachPiece(const AcDbPolyline* polyline, VISIT visit) {
  const auto& list = verticesOf(polyline).list;
  const std::size_t pieces = list.size() < 2 ? 0 : polyline->isClosed() ? list.size() : list.size() - 1;
  for (std::size_t i = 0; i < pieces; ++i) visit(list[i], list[(i + 1) % list.size()]);
}

}  // namespace

AcDbPolyline::AcDbPolyline() { initRecord(*this, "LWPOLYLINE"); }
AcDbPolyline::AcDbPolyline(unsigned int numVerts) : AcDbPolyline() { verticesOf(this).list.reserve(numVerts); }
unsigned int AcDbPolyline::numVerts() const { return static_cast<unsigned int>(verticesOf(this).list.size()); }
bool AcDbPolyline::isClosed() const { return verticesOf(this).closed; }
void AcDbPolyline::setClosed(bool closed) {
  const std::int64_t flags = recordOf(this).integer(kFlags);
  if (AcDbImpObject::of(this).setInteger(
          kFlags, closed ? flags | PolylineFlags::kClosed : flags & ~PolylineFlags::kClosed) != Acad::eOk)
    return;
  verticesOf(this).closed = closed;
  verticesOf(this).curve.reset();
}
double AcDbPolyline::elevation() const { return verticesOf(this).elevation; }
void AcDbPolyline::setElevation(double elevation) {
  if (AcDbImpObject::of(this).setReal(kElevation, elevation) != Acad::eOk) return;
  verticesOf(this).elevation = elevation;
  verticesOf(this).curve.reset();
}
AcGeVector3d AcDbPolyline::normal() const { return verticesOf(this).normal; }
Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal) {
  if (normal.isZeroLength()) return Acad::eInvalidInput;
  const Acad::ErrorStatus status =
      AcDbImpObject::of(this).setPoint(normalField(kPolyline), AcGePoint3d() + normal.normal());
  if (status != Acad::eOk) return status;
  verticesOf(this).normal = normal.normal();
  verticesOf(this).curve.reset();
  return Acad::eOk;
}
bool AcDbPolyline::hasBulges() const {
  const auto& list = verticesOf(this).list;
  return std::any_of(list.begin(), list.end(), [](const PolylineVertex& v) { return v.bulge != 0; });
}
bool AcDbPolyline::hasWidth() const {
  const auto& list = verticesOf(this).list;
  return verticesOf(this).constantWidth.value_or(0) != 0 ||
         std::any_of(list.begin(), list.end(),
                     [](const PolylineVertex& v) { return v.startWidth != 0 || v.endWidth != 0; });
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth) {
  PolylineVertices* vertices = changedVertices(this);
  if (!vertices) return Acad::eNotOpenForWrite;
  if (index > vertices->list.size()) return Acad::eInvalidIndex;
  vertices->list.insert(vertices->list.begin() + index,
                        {point, bulge, std::max(0.0, startWidth), std::max(0.0, endWidth), 0});
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
  if (index >= numVerts()) return Acad::eInvalidIndex;
  PolylineVertices* vertices = changedVertices(this);
  if (!vertices) return Acad::eNotOpenForWrite;
  vertices->list.erase(vertices->list.begin() + index);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
  if (index >= numVerts()) return Acad::eInvalidIndex;
  point = verticesOf(this).list[index].point;
  return Acad::eOk;
}
Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const {
  if (index >= numVerts()) return Acad::eInvalidIndex;
  const AcGePoint2d& p = verticesOf(this).list[index].point;
  point = toWorld(AcGePoint3d(p.x, p.y, elevation()), normal());
  return Acad::eOk;
}
Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
  if (index >= numVerts()) return Acad::eInvalidIndex;
  bulge = verticesOf(this).list[index].bulge;
  return Acad::eOk;
}
Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
  if (index >= numVerts()) return Acad::eInvalidIndex;
  if (const double constant = verticesOf(this).constantWidth.value_or(0); constant != 0) {
    startWidth = endWidth = constant;
    return Acad::eOk;
  }
  startWidth = verticesOf(this).list[index].startWidth;
  endWidth = verticesOf(this).list[index].endWidth;
  return Acad::eOk;
}

#define ATELIER_SET_VERTEX(...)                        \
  if (index >= numVerts()) return Acad::eInvalidIndex; \
  PolylineVertices* vertices = changedVertices(this);  \
  if (!vertices) return Acad::eNotOpenForWrite;        \
  PolylineVertex& vertex = vertices->list[index];      \
  __VA_ARGS__;                                         \
  return Acad::eOk
Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point) {
  ATELIER_SET_VERTEX(vertex.point = point);
}
Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
  ATELIER_SET_VERTEX(vertex.bulge = bulge);
}
Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
  ATELIER_SET_VERTEX(vertex.startWidth = startWidth, vertex.endWidth = endWidth);
}
#undef ATELIER_SET_VERTEX

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const {
  const auto& constant = verticesOf(this).constantWidth;
  if (!constant && hasWidth()) return Acad::eInvalidInput;
  width = constant.value_or(0);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width) {
  PolylineVertices* vertices = changedVertices(this);
  if (!vertices) return Acad::eNotOpenForWrite;
  for (PolylineVertex& v : vertices->list) v.startWidth = v.endWidth = 0;
  vertices->constantWidth = width;
  return AcDbImpObject::of(this).setReal(kWidth, width);
}

Acad::ErrorStatus AcDbPolyline::getStartPoint(AcGePoint3d& point) const { return getPointAt(0, point); }
Acad::ErrorStatus AcDbPolyline::getEndPoint(AcGePoint3d& point) const {
  if (numVerts() == 0) return Acad::eInvalidIndex;
  return getPointAt(isClosed() ? 0 : numVerts() - 1, point);
}

Acad::ErrorStatus AcDbPolyline::getArea(double& area) const {
  const auto& list = verticesOf(this).list;
  double twice = 0;
  const auto shoelace = [&](const AcGePoint2d& a, const AcGePoint2d& b) {
    const AcGeVector2d u = a - list.front().point, v = b - list.front().point;  // small numbers lose no digits
    twice += u.x * v.y - v.x * u.y;
  };
  eachPiece(this, [&](const PolylineVertex& a, const PolylineVertex& b) {
    shoelace(a.point, b.point);
    if (const BulgeArc arc = bulgeArc(a.point, b.point, a.bulge); arc.radius > 0)
      twice += arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep));
  });
  area = std::abs(twice) / 2;
  return Acad::eOk;
}

AcDbExtents atelier::bulgeExtents(const AcGePoint2d& from, const AcGePoint2d& to, double bulge, double elevation,
                                  const AcGeVector3d& normal) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal);
  const BulgeArc arc = bulgeArc(from, to, bulge);
  AcDbExtents box;
  box.addPoint(plane * AcGePoint3d(from.x, from.y, elevation));
  box.addPoint(plane * AcGePoint3d(to.x, to.y, elevation));
  if (arc.radius == 0) return box;
  const double low = std::min(arc.startAngle, arc.startAngle + arc.sweep);
  box.addExt(ellipseExtents(plane * AcGePoint3d(arc.centre.x, arc.centre.y, elevation),
                            plane * AcGeVector3d(arc.radius, 0, 0), plane * AcGeVector3d(0, arc.radius, 0), low,
                            low + std::abs(arc.sweep)));
  return box;
}

Acad::ErrorStatus AcDbPolyline::subGetGeomExtents(AcDbExtents& extents) const {
  const auto& list = verticesOf(this).list;
  if (list.empty()) return Acad::eInvalidExtents;
  AcDbExtents box;
  const auto add = [&](const AcGePoint2d& p, double half) {
    for (const double s : {-half, half}) {
      box.addPoint(toWorld(AcGePoint3d(p.x + s, p.y - s, elevation()), normal()));
      box.addPoint(toWorld(AcGePoint3d(p.x + s, p.y + s, elevation()), normal()));
    }
  };
  for (unsigned int i = 0; i < numVerts(); ++i) {
    double w0 = 0, w1 = 0;
    getWidthsAt(i, w0, w1);
    add(list[i].point, std::max(w0, w1) / 2);
  }
  eachPiece(this, [&](const PolylineVertex& a, const PolylineVertex& b) {
    const BulgeArc arc = bulgeArc(a.point, b.point, a.bulge);
    if (arc.radius == 0) return;
    if (!isWorldPlane(normal())) return box.addExt(bulgeExtents(a.point, b.point, a.bulge, elevation(), normal()));
    constexpr double kQuarter = std::numbers::pi / 2;
    const double low = std::min(arc.startAngle, arc.startAngle + arc.sweep), high = low + std::abs(arc.sweep);
    for (double angle = std::ceil(low / kQuarter) * kQuarter; angle <= high; angle += kQuarter) {
      add(arc.centre + AcGeVector2d(std::cos(angle), std::sin(angle)) * arc.radius,
          std::max(a.startWidth, a.endWidth) / 2);
    }
  });
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& m) {
  PolylineVertices* vertices = changedVertices(this);
  if (!vertices) return Acad::eNotOpenForWrite;
  const AcGeVector3d before = normal();
  const PlaneChange plane(m, before);
  double height = elevation();
  for (PolylineVertex& v : vertices->list) {
    const AcGePoint3d p = toPlane(m * toWorld(AcGePoint3d(v.point.x, v.point.y, elevation()), before), plane.normal);
    v.point = AcGePoint2d(p.x, p.y);
    v.startWidth *= plane.scale;
    v.endWidth *= plane.scale;
    if (plane.mirrored) v.bulge = -v.bulge;
    height = p.z;
  }
  AcDbImpObject& imp = AcDbImpObject::of(this);
  if (const double width = vertices->constantWidth.value_or(0); width != 0) {
    vertices->constantWidth = width * plane.scale;
    imp.setReal(kWidth, width * plane.scale);
  }
  if (height != elevation()) setElevation(height);
  if (!isWorldPlane(plane.normal) || imp.record.has(normalField(kPolyline))) return setNormal(plane.normal);
  return Acad::eOk;
}
