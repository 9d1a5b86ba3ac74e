// Walks a record by the table of carried_rules.h; the drawn block of a dimension goes along.
#include "atelier/database/entities/carried_transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/entities/carried_rules.h"
#include "atelier/database/entities/dimension_text.h"
#include "atelier/database/entities/measured_dimension.h"
#include "atelier/database/entities/multileader_groups.h"
#include "atelier/database/objects/imp_database.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

constexpr std::string_view kDimensionMark = "AcDbDimension";
constexpr Field kMeasurement = realField(kDimensionMark, 42);

// What a matrix does, seen in the entity's plane.
struct Change {
  Change(const AcGeMatrix3d& m, const AcGeVector3d& normal) : matrix(m), before(normal), plane(m, normal) {
    constexpr double kEven = 1e-9;
    const AcGeVector3d x = m * AcGeVector3d(1, 0, 0), y = m * AcGeVector3d(0, 1, 0), z = m * AcGeVector3d(0, 0, 1);
    scales = std::abs(x.length() - 1) > kEven;
    // A scale that isn't the same in x and y, or that isn't square, is nobody's.
    const double size = x.length() * y.length();
    even = std::abs(x.length() - y.length()) <= kEven * size && std::abs(x.dotProduct(y)) <= kEven * size;
    turns = std::abs(plane.turn) > kEven;
    mirrors = x.crossProduct(y).dotProduct(z) < 0;
  }
  AcGeMatrix3d matrix;
  AcGeVector3d before;
  PlaneChange plane;
  bool even, scales, turns, mirrors;
};

AcGeVector3d planeOf(const Record& record) {
  for (const std::string_view mark :
       {"AcDbDimension", "AcDbLeader", "AcDbFcf", "AcDbMline", "AcDbUnderlayReference", "AcDbShape"})
    if (record.has(normalField(mark))) return normalOf(record, mark);
  return {0, 0, 1};
}

class Walk {
 public:
  Walk(Record& record, const CarriedType& type, const Change& change) : record_(record), type_(type), change_(change) {}

  void run() {
    std::string mark;
    const std::size_t end = record_.xdataStart();
    for (std::size_t i = 0; i < end; ++i) {
      Group& group = record_.groups[i];
      if (group.code() == 100) mark = group.text();
      for (const CarriedGroup& row : type_.groups)
        if (row.code == group.code() && row.mark == mark) {
          apply(i, end, row.meaning);
          break;
        }
      if (group.code() == 210) put(i, end, AcGePoint3d() + change_.plane.normal);
    }
  }

 private:
  AcGePoint3d pointAt(std::size_t i, std::size_t end) const {
    const int code = record_.groups[i].code();
    double ordinates[3] = {};
    for (std::size_t k = 0; k < 3 && i + k < end; ++k)
      if (record_.groups[i + k].code() == code + 10 * static_cast<int>(k)) ordinates[k] = record_.groups[i + k].real();
    return {ordinates[0], ordinates[1], ordinates[2]};
  }
  void put(std::size_t i, std::size_t end, const AcGePoint3d& p) {
    const int code = record_.groups[i].code();
    const double ordinates[3] = {p.x, p.y, p.z};
    for (std::size_t k = 0; k < 3 && i + k < end; ++k)
      if (record_.groups[i + k].code() == code + 10 * static_cast<int>(k))
        record_.groups[i + k] = Group::real(record_.groups[i + k].code(), ordinates[k]);
  }

  void apply(std::size_t i, std::size_t end, Meaning meaning) {
    Group& group = record_.groups[i];
    const int code = group.code();
    const double degrees = 180 / std::numbers::pi;
    const AcGeMatrix3d& m = change_.matrix;
    switch (meaning) {
      case Meaning::point: return put(i, end, m * pointAt(i, end));
      case Meaning::planePoint:
        return put(i, end, toPlane(m * toWorld(pointAt(i, end), change_.before), change_.plane.normal));
      case Meaning::vector: return put(i, end, AcGePoint3d() + m * pointAt(i, end).asVector());
      case Meaning::direction:
        return put(i, end, AcGePoint3d() + (m * pointAt(i, end).asVector()) * (1 / change_.plane.scale));
      case Meaning::length: group = Group::real(code, group.real() * change_.plane.scale); return;
      case Meaning::angle: {
        const double turned = change_.plane.turn * degrees + (change_.plane.mirrored ? -group.real() : group.real());
        group = Group::real(code, turned);
        return;
      }
      case Meaning::mirrorSide:
        if (change_.mirrors && group.integer() != 1) group = Group::integer(code, 2 - group.integer());
    }
  }

  Record& record_;
  const CarriedType& type_;
  const Change& change_;
};

bool isIdentity(const AcGeMatrix3d& matrix) {
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column)
      if (matrix(row, column) != (row == column ? 1 : 0)) return false;
  return true;
}

bool canChange(const Record& record, const CarriedType* type, const Change& change) {
  return type && change.even && (type->turns || !change.turns) && (type->scales || !change.scales) &&
         (type->mirrors || !change.mirrors) && !record.type().empty();
}

// A vertex that tells a face of a mesh by the numbers of its corners.
bool isFace(AcDbStub& vertex) {
  constexpr std::int64_t kFace = 128, kPlace = 64;
  const Record& record = AcDbImpObject::of(&vertex.database->object(vertex)).settled();
  const auto flags = std::ranges::find(record.groups, 70, &Group::code);
  return flags != record.groups.end() && (flags->integer() & (kFace | kPlace)) == kFace;
}

// The block that shows a dimension is drawn in the world: its contents move with it.
void transformBlock(AcDbStub& dimension, const std::string& name, const AcGeMatrix3d& matrix) {
  AcDbStub* block = dimension.database->tableRecord("BLOCK_RECORD", name);
  if (!block || !name.starts_with('*') || !block->children) return;
  for (AcDbStub* child : *block->children) {
    if (child->is(AcDbStub::kErased)) continue;
    const AcDbEntityPointer part(idOf(child), AcDb::kForWrite);
    if (part.openStatus() == Acad::eOk) part->transformBy(matrix);
  }
}

}  // namespace

bool canTransform(const AcDbEntity& entity, const AcGeMatrix3d& matrix) {
  const Record& record = AcDbImpObject::of(&entity).settled();
  const std::string_view type = record.type();
  const bool own = formatOf(type) && type != "DIMENSION" && type != "REGION" && type != "POLYLINE";
  if (own || AcDbCurve::cast(&entity) || isIdentity(matrix)) return true;
  return canChange(record, carriedType(type), Change(matrix, planeOf(record)));
}

Acad::ErrorStatus transformCarried(AcDbEntity& entity, const AcGeMatrix3d& matrix) {
  if (isIdentity(matrix)) return Acad::eOk;
  AcDbImpObject& imp = AcDbImpObject::of(&entity);
  const CarriedType* type = carriedType(imp.settled().type());
  const Change change(matrix, planeOf(imp.record));
  if (!canChange(imp.record, type, change)) return Acad::eNotApplicable;
  Record* record = imp.writable();
  if (!record) return Acad::eNotOpenForWrite;
  const std::optional<double> length = measured(*record);
  // The direction of a leader's text is written when it isn't that of the x axis.
  const Field along = pointField("AcDbLeader", 211);
  if (type->type == "LEADER" && !record->has(along)) record->setPoint(along, {1, 0, 0});
  if (type->type == "MULTILEADER") transformMultileader(*record, matrix, change.plane.scale, change.plane.turn);
  else Walk(*record, *type, change).run();
  if (type->type == "POLYLINE" && imp.stub && imp.stub->children)
    for (AcDbStub* child : *imp.stub->children) {
      if (isFace(*child)) continue;
      const AcDbEntityPointer vertex(idOf(child), AcDb::kForWrite);
      if (vertex.openStatus() == Acad::eOk) vertex->transformBy(matrix);
    }
  if (imp.stub && record->section(kDimensionMark).first != Record::npos) {
    const std::string block = record->text(textField(kDimensionMark, 2));
    transformBlock(*imp.stub, block, matrix);
    if (length && change.scales) {
      const Scaled scaled{*length, change.plane.scale};
      if (record->has(kMeasurement)) record->setReal(kMeasurement, scaled.before * scaled.scale);
      updateDimensionText(*imp.stub, block, scaled);
    }
  }
  return Acad::eOk;
}

}  // namespace atelier
