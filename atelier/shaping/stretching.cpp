// By the points that an entity is defined by: a table of their groups for the types that have several.
#include "atelier/shaping/stretching.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <vector>

#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/dimensions/dimension_block.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/records/groups.h"
#include "hote/adaptation.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

struct PointCode {
  int code;
  bool inPlane = false;  // in the coordinates of the entity's plane
};
constexpr PointCode kLine[] = {{10}, {11}}, kPath[] = {{10}}, kFlatPath[] = {{10, true}},
                    kCorners[] = {{10}, {11}, {12}, {13}},
                    kFlatCorners[] = {{10, true}, {11, true}, {12, true}, {13, true}},
                    kDimension[] = {{10}, {13}, {14}, {15}, {16, true}};

struct Row {
  std::string_view type;
  std::span<const PointCode> codes;
};
constexpr Row kRows[] = {{"LINE", kLine},         {"LWPOLYLINE", kFlatPath}, {"SPLINE", kLine},
                         {"LEADER", kPath},       {"3DFACE", kCorners},      {"SOLID", kFlatCorners},
                         {"TRACE", kFlatCorners}, {"DIMENSION", kDimension}, {"POLYLINE", {}}};

// A point of a record while it is looked at: the index of its first ordinate.
struct Place {
  std::size_t index;
  bool inPlane;
  AcGePoint3d world;
};

class Points {
 public:
  Points(const Record& record, std::span<const PointCode> codes) : normal_(Groups(record).normal()) {
    // A light polyline has one height for all.
    height_ = record.type() == "LWPOLYLINE" ? Groups(record).real(38) : 0;
    for (std::size_t i = 0; i < record.xdataStart(); ++i) {
      const auto code = std::ranges::find(codes, record.groups[i].code(), &PointCode::code);
      if (code == codes.end()) continue;
      const AcGePoint3d p(ordinate(record, i, 0), ordinate(record, i, 1), height_ + ordinate(record, i, 2));
      places.push_back({i, code->inPlane, code->inPlane ? toWorld(p, normal_) : p});
    }
  }
  void move(Record& record, const Place& place, const AcGeVector3d& by) const {
    const AcGePoint3d shift = place.inPlane ? toPlane(AcGePoint3d() + by, normal_) : AcGePoint3d() + by;
    for (int axis = 0; axis < 3; ++axis)
      if (Group* group = at(record, place.index, axis))
        *group = Group::real(group->code(), group->real() + (axis == 0 ? shift.x : axis == 1 ? shift.y : shift.z));
  }
  std::vector<Place> places;

 private:
  // The next ordinates stand right behind the first.
  template <typename RecordType>
  static auto at(RecordType& record, std::size_t index, int axis) -> decltype(&record.groups[0]) {
    const std::size_t i = index + static_cast<std::size_t>(axis);
    const int code = record.groups[index].code() + 10 * axis;
    return i < record.groups.size() && record.groups[i].code() == code ? &record.groups[i] : nullptr;
  }
  static double ordinate(const Record& record, std::size_t index, int axis) {
    const Group* group = at(record, index, axis);
    return group ? group->real() : 0;
  }
  AcGeVector3d normal_;
  double height_ = 0;
};

Record& recordOf(AcDbEntity& entity) { return *AcDbImpObject::of(&entity).writable(); }

void moveWhole(AcDbEntity& entity, const AcGeVector3d& by) { entity.transformBy(AcGeMatrix3d::translation(by)); }

void stretchPoints(AcDbEntity& entity, std::span<const PointCode> codes, const Moves& moves, const AcGeVector3d& by) {
  const Points points(AcDbImpObject::of(&entity).settled(), codes);
  const auto moved = [&](const Place& place) { return moves(place.world); };
  if (std::ranges::none_of(points.places, moved)) return;
  if (std::ranges::all_of(points.places, moved)) return moveWhole(entity, by);
  for (const Place& place : points.places)
    if (moved(place)) points.move(recordOf(entity), place, by);
  if (auto* dimension = AcDbDimension::cast(&entity)) {
    constexpr int kTextByUser = 128;
    Record& record = recordOf(entity);
    if (!(record.integer(integerField("AcDbDimension", 70)) & kTextByUser))
      record.remove(pointField("AcDbDimension", 11));
    drawDimensionBlock(*dimension);
  }
}

// A polyline whose vertices are entities.
void stretchVertices(AcDbEntity& entity, const Moves& moves, const AcGeVector3d& by) {
  const AcDbStub* stub = entity.objectId();
  if (!stub || !stub->children) return;
  const std::vector<AcDbStub*> vertices = *stub->children;
  // Those of a flat polyline are in its plane, which stands in the polyline.
  const bool flat = AcDb2dPolyline::cast(&entity) != nullptr;
  const AcGeVector3d normal = Groups(AcDbImpObject::of(&entity).settled()).normal();
  const AcGePoint3d shift = flat ? toPlane(AcGePoint3d() + by, normal) : AcGePoint3d() + by;
  for (AcDbStub* vertex : vertices) {
    const AcDbEntityPointer open(AcDbObjectId(vertex), AcDb::kForWrite);
    if (open.openStatus() != Acad::eOk || AcDbImpObject::of(open.object()).settled().type() != "VERTEX") continue;
    const AcGePoint3d p = Groups(AcDbImpObject::of(open.object()).settled()).point(10);
    if (moves(flat ? toWorld(p, normal) : p))
      recordOf(*open.object()).setPoint(pointField("AcDbVertex", 10), p + shift.asVector());
  }
}

// Between new ends with the old angle.
void stretchArc(AcDbArc& arc, const Moves& moves, const AcGeVector3d& by) {
  AcGePoint3d start, end;
  arc.getStartPoint(start);
  arc.getEndPoint(end);
  const bool first = moves(start), second = moves(end);
  if (first && second) return moveWhole(arc, by);
  if (!first && !second) return;
  const AcGePoint3d a = toPlane(first ? start + by : start, arc.normal());
  const AcGePoint3d b = toPlane(second ? end + by : end, arc.normal());
  const BulgeArc made = bulgeArc({a.x, a.y}, {b.x, b.y}, std::tan(arc.totalAngle() / 4));
  if (!(made.radius > 0) || !std::isfinite(made.radius)) return;
  arc.setCenter(toWorld({made.centre.x, made.centre.y, a.z}, arc.normal()));
  arc.setRadius(made.radius);
  arc.setStartAngle(made.startAngle);
  arc.setEndAngle(made.startAngle + made.sweep);
}

// The one place that stands for an entity without several points.
bool placeMoves(const AcDbEntity& entity, const Moves& moves) {
  const Groups groups(AcDbImpObject::of(&entity).settled());
  AcDbExtents box;
  if (groups.text(0) == "HATCH" || !groups.has(10)) {
    if (entity.getGeomExtents(box) != Acad::eOk || adaptation::isEmpty(box)) return false;
    return moves(box.minPoint()) && moves(box.maxPoint());
  }
  const AcGePoint3d p = groups.point(10);
  const std::string_view type = groups.text(0);
  const bool world = type == "MTEXT" || type == "POINT" || type == "ELLIPSE" || type == "RAY" || type == "XLINE";
  return moves(world ? p : toWorld(p, groups.normal()));
}

}  // namespace

void stretch(AcDbEntity& entity, const Moves& moves, const AcGeVector3d& by) {
  if (auto* arc = AcDbArc::cast(&entity)) return stretchArc(*arc, moves, by);
  const std::string type(AcDbImpObject::of(&entity).settled().type());
  const auto row = std::ranges::find(kRows, type, &Row::type);
  if (row == std::end(kRows)) {
    if (placeMoves(entity, moves)) moveWhole(entity, by);
  } else if (type == "POLYLINE") {
    stretchVertices(entity, moves, by);
  } else {
    stretchPoints(entity, row->codes, moves, by);
  }
}

}  // namespace atelier
