// Block references: placement, attributes, extents through the block, and taking apart.
// The position is stored in the plane of the reference and given in the world.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/entities/block_clip.h"
#include "atelier/database/entities/block_extents.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "hote/adaptation.h"
#include "hote/dbents.h"
#include "hote/dbsymtb.h"

using namespace atelier;

namespace {

constexpr std::string_view kInsert = "AcDbBlockReference";
constexpr double kDegree = std::numbers::pi / 180;
constexpr Field kBlock = textField(kInsert, 2), kPosition = pointField(kInsert, 10), kRotation = realField(kInsert, 50),
                kFollow = integerField(kInsert, 66), kColumns = integerField(kInsert, 70),
                kRows = integerField(kInsert, 71), kColumnSpacing = realField(kInsert, 44),
                kRowSpacing = realField(kInsert, 45);
constexpr Field kScale[3] = {realField(kInsert, 41, 1), realField(kInsert, 42, 1), realField(kInsert, 43, 1)};

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }

// Blocks whose extents are being worked out: one that contains itself, by references or dimensions, adds nothing.
class InProgress {
 public:
  explicit InProgress(const AcDbStub* block)
      : again_(std::find(blocks().begin(), blocks().end(), block) != blocks().end()) {
    blocks().push_back(block);
  }
  ~InProgress() { blocks().pop_back(); }
  InProgress(const InProgress&) = delete;
  InProgress& operator=(const InProgress&) = delete;
  bool again() const { return again_; }

 private:
  static std::vector<const AcDbStub*>& blocks() {
    static thread_local std::vector<const AcDbStub*> list;
    return list;
  }
  bool again_;
};

struct KeptExtents {
  int holders = 0;
  std::unordered_map<const AcDbStub*, AcDbExtents> boxes;
};
KeptExtents& keptExtents() {
  static thread_local KeptExtents kept;
  return kept;
}

// What the boxes have in common in plan; empty where they are apart.
AcDbExtents commonInPlan(const AcDbExtents& box, const AcDbExtents& clip) {
  const AcGePoint3d low(std::max(box.minPoint().x, clip.minPoint().x), std::max(box.minPoint().y, clip.minPoint().y),
                        box.minPoint().z);
  const AcGePoint3d high(std::min(box.maxPoint().x, clip.maxPoint().x), std::min(box.maxPoint().y, clip.maxPoint().y),
                         box.maxPoint().z);
  return low.x <= high.x && low.y <= high.y ? AcDbExtents(low, high) : AcDbExtents();
}

// The box of the block as the reference shows it, with all places of an array.
AcDbExtents shownExtents(const AcDbBlockReference& reference) {
  AcDbExtents box = blockExtents(reference.blockTableRecord());
  if (adaptation::isEmpty(box)) return box;
  box.transformBy(reference.blockTransform());
  const Record& record = recordOf(&reference);
  if (AcDbImpDatabase* database = databaseOf(&reference)) {
    AcDbExtents shown;
    for (const AcGePoint3d& corner : blockClip(*database, record)) shown.addPoint(reference.blockTransform() * corner);
    if (!adaptation::isEmpty(shown)) box = commonInPlan(box, shown);
    if (adaptation::isEmpty(box)) return box;
  }
  const auto span = [&](const Field& count, const Field& spacing) {
    return static_cast<double>(std::max<std::int64_t>(record.integer(count), 1) - 1) * record.real(spacing);
  };
  const double across = span(kColumns, kColumnSpacing), up = span(kRows, kRowSpacing);
  if (across == 0 && up == 0) return box;
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(reference.normal()) *
                             AcGeMatrix3d::rotation(reference.rotation(), AcGeVector3d::kZAxis);
  const AcDbExtents first = box;
  for (const AcGeVector3d& step : {AcGeVector3d(across, 0, 0), AcGeVector3d(0, up, 0), AcGeVector3d(across, up, 0)}) {
    const AcGeVector3d shift = plane * step;
    box.addPoint(first.minPoint() + shift);
    box.addPoint(first.maxPoint() + shift);
  }
  return box;
}

AcDbExtents walkedExtents(AcDbObjectId blockId) {
  AcDbExtents box;
  const InProgress progress(blockId);
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId);
  if (block.openStatus() != Acad::eOk || progress.again()) return box;
  for (const AcDbObjectId id : adaptation::entityIds(*block)) {
    const AcDbEntityPointer entity(id);
    if (entity.openStatus() != Acad::eOk || entity->isKindOf(AcDbAttributeDefinition::desc())) continue;
    AcDbExtents part;
    if (entity->getGeomExtents(part) == Acad::eOk) box.addExt(part);
  }
  return box;
}

}  // namespace

BlockExtentsKept::BlockExtentsKept() { ++keptExtents().holders; }
BlockExtentsKept::~BlockExtentsKept() {
  if (--keptExtents().holders == 0) keptExtents().boxes.clear();
}

AcDbExtents atelier::blockExtents(AcDbObjectId block) {
  const BlockExtentsKept kept;
  auto& boxes = keptExtents().boxes;
  if (const auto known = boxes.find(block); known != boxes.end()) return known->second;
  const AcDbExtents box = walkedExtents(block);
  return boxes[block] = box;
}

AcDbBlockReference::AcDbBlockReference() { initRecord(*this, "INSERT"); }
AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) : AcDbBlockReference() {
  setPosition(position);
  setBlockTableRecord(block);
}
AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  AcDbImpDatabase* db = databaseOf(this);
  return db ? idOf(db->tableRecord("BLOCK_RECORD", recordOf(this).text(kBlock))) : AcDbObjectId();
}
AcGePoint3d AcDbBlockReference::position() const { return toWorld(recordOf(this).point(kPosition), normal()); }
AcGeScale3d AcDbBlockReference::scaleFactors() const {
  // A factor of 0, which damaged files contain, counts as 1: a matrix with it would have no inverse.
  const auto factor = [&](const Field& field) {
    const double value = recordOf(this).real(field);
    return value == 0 ? 1 : value;
  };
  return {factor(kScale[0]), factor(kScale[1]), factor(kScale[2])};
}
double AcDbBlockReference::rotation() const { return recordOf(this).real(kRotation) * kDegree; }
AcGeVector3d AcDbBlockReference::normal() const { return normalOf(recordOf(this), kInsert); }

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
  const AcGeScale3d s = scaleFactors();
  AcGeMatrix3d scale;
  scale(0, 0) = s.sx;
  scale(1, 1) = s.sy;
  scale(2, 2) = s.sz;
  AcGePoint3d origin;
  if (const AcDbObjectPointer<AcDbBlockTableRecord> block(blockTableRecord()); block.openStatus() == Acad::eOk)
    origin = block->origin();
  return AcGeMatrix3d::translation(position().asVector()) * AcGeMatrix3d().setToPlaneToWorld(normal()) *
         AcGeMatrix3d::rotation(rotation(), AcGeVector3d(0, 0, 1)) * scale *
         AcGeMatrix3d::translation(-origin.asVector());
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block) {
  AcDbStub* stub = block;
  return stub ? AcDbImpObject::of(this).setText(kBlock, stub->database->recordName(*stub)) : Acad::eNullObjectId;
}
Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& p) {
  return AcDbImpObject::of(this).setPoint(kPosition, toPlane(p, normal()));
}
Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
  AcDbImpObject& imp = AcDbImpObject::of(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  const double factors[3] = {scale.sx, scale.sy, scale.sz};
  for (int i = 0; i < 3; ++i) imp.setReal(kScale[i], factors[i]);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::setRotation(double rotation) {
  return AcDbImpObject::of(this).setReal(kRotation, rotation / kDegree);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
  AcDbStub* stub = stubOf(this);
  if (!stub) return Acad::eNoDatabase;
  AcDbImpObject& imp = AcDbImpObject::of(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  AcDbStub& added = stub->database->adoptFollower(*attribute, *stub);
  imp.setInteger(kFollow, 1);
  id = idOf(&added);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
  AcDbObjectId id;
  return appendAttribute(id, attribute);
}
Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                                    bool openErased) const {
  return acdbOpenObject(attribute, id, mode, openErased);
}
AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
  AcDbObjectIdArray ids;
  if (const AcDbStub* stub = stubOf(this); stub && stub->children)
    for (AcDbStub* child : *stub->children)
      if (!child->is(AcDbStub::kErased) && stub->database->typeName(*child) == "ATTRIB") ids.append(idOf(child));
  return new AcDbObjectIterator(ids);
}

Acad::ErrorStatus AcDbBlockReference::subGetGeomExtents(AcDbExtents& extents) const {
  // The reference is opened so that parsing a large block doesn't drop it from memory.
  const AcDbObjectPointer<AcDbBlockReference> held(objectId());
  AcDbExtents box = shownExtents(*this);
  const std::unique_ptr<AcDbObjectIterator> it(attributeIterator());
  for (; !it->done(); it->step()) {
    const AcDbObjectPointer<AcDbAttribute> attribute(it->objectId());
    AcDbExtents part;
    if (attribute.openStatus() == Acad::eOk && !attribute->isInvisible() &&
        attribute->getGeomExtents(part) == Acad::eOk)
      box.addExt(part);
  }
  if (adaptation::isEmpty(box)) return Acad::eInvalidExtents;
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& m) {
  AcDbImpObject& imp = AcDbImpObject::of(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  PlaneChange plane(m, normal());
  const double wider = plane.stretchAlong(m, normal(), rotation());
  double deep = std::abs((m * normal()).dotProduct(plane.normal));
  constexpr double kEven = 1e-9;
  if (std::abs(deep - plane.scale) <= kEven * deep) deep = plane.scale;
  const AcGePoint3d at = m * position();
  AcGeScale3d scale = scaleFactors();
  const double sign = plane.mirrored ? -1.0 : 1.0;
  const double angle = plane.mirrored ? plane.turn - rotation() : rotation() + plane.turn;
  if (!isWorldPlane(plane.normal) || imp.record.has(normalField(kInsert)))
    imp.setPoint(normalField(kInsert), AcGePoint3d() + plane.normal);
  setPosition(at);
  setScaleFactors({scale.sx * plane.scale * wider, scale.sy * plane.scale * sign, scale.sz * deep});
  setRotation(angle);
  const std::unique_ptr<AcDbObjectIterator> it(attributeIterator());
  for (; !it->done(); it->step()) {
    const AcDbObjectPointer<AcDbAttribute> attribute(it->objectId(), AcDb::kForWrite);
    if (attribute.openStatus() == Acad::eOk) attribute->transformBy(m);
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::explode(AcArray<AcRxObject*>& parts) const {
  const AcDbObjectPointer<AcDbBlockReference> held(objectId());
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockTableRecord());
  if (block.openStatus() != Acad::eOk) return block.openStatus();
  // An array can't be exploded: the number of its objects has no limit.
  if (recordOf(this).integer(kColumns) > 1 || recordOf(this).integer(kRows) > 1) return Acad::eNotApplicable;
  for (const AcDbObjectId id : adaptation::entityIds(*block)) {
    const AcDbEntityPointer entity(id);
    if (entity.openStatus() != Acad::eOk || entity->isKindOf(AcDbAttributeDefinition::desc())) continue;
    // Outside a drawing a polyline can't hold vertices that are entities.
    const auto* old = AcDb2dPolyline::cast(entity.object());
    AcDbEntity* part = old ? lightPolyline(*old).release() : static_cast<AcDbEntity*>(entity->clone());
    part->transformBy(blockTransform());
    parts.append(part);
  }
  return Acad::eOk;
}
