// AcDbEntity: layer, colour, line type, weight, visibility, transparency.
// Defaults are those of the DXF reference: a group that is missing means its default.
#include <cmath>

#include "atelier/database/entities/carried_transform.h"
#include "atelier/database/objects/imp_database.h"
#include "hote/acut.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

constexpr std::string_view kEntity = "AcDbEntity";
constexpr Field kLayer = textField(kEntity, 8, "0");
constexpr Field kLinetype = textField(kEntity, 6, "BYLAYER");
constexpr Field kColor = integerField(kEntity, 62, 256);
constexpr Field kWeight = integerField(kEntity, 370, -1);
constexpr Field kScale = realField(kEntity, 48, 1);
constexpr Field kTrueColor = integerField(kEntity, 420);
constexpr Field kInvisible = integerField(kEntity, 60);
constexpr Field kTransparency = integerField(kEntity, 440);

// Group 440: 0x02000000 plus an alpha of 0 to 255 (clear to opaque).
constexpr std::int64_t kAlphaMark = 0x02000000;

}  // namespace

Adesk::UInt16 AcDbEntity::colorIndex() const {
  return static_cast<Adesk::UInt16>(std::abs(AcDbImpObject::of(this).record.integer(kColor)));
}
Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, bool) {
  if (color > 256) return Acad::eInvalidInput;
  AcDbImpObject& imp = AcDbImpObject::of(this);
  if (imp.record.has(kTrueColor))  // a number takes its place
    if (Record* record = imp.writable()) record->remove(kTrueColor);
  if (color == 256 && !imp.record.has(kColor)) return imp.isWritable() ? Acad::eOk : Acad::eNotOpenForWrite;
  return imp.setInteger(kColor, color);
}
AcCmColor AcDbEntity::color() const {
  AcCmColor c;
  c.setColorIndex(colorIndex());
  return c;
}

Acad::ErrorStatus AcDbEntity::layer(AcString& name) const {
  const std::string text = AcDbImpObject::of(this).record.text(kLayer);
  name = AcString(toWide(text.empty() ? "0" : text).c_str());
  return Acad::eOk;
}
ACHAR* AcDbEntity::layer() const {
  AcString name;
  layer(name);
  ACHAR* copy = nullptr;
  acutNewString(name, copy);
  return copy;
}
AcDbObjectId AcDbEntity::layerId() const {
  AcDbImpDatabase* db = databaseOf(this);
  AcString name;
  layer(name);
  return db ? idOf(db->tableRecord("LAYER", toUtf8(name.kACharPtr()))) : AcDbObjectId();
}
Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, bool) {
  AcDbImpDatabase* db = databaseOf(this);
  if (!db) return Acad::eNoDatabase;
  AcDbStub* stub = db->tableRecord("LAYER", toUtf8(name));
  return stub ? setLayer(idOf(stub)) : Acad::eKeyNotFound;
}
Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, bool) {
  AcDbStub* stub = id;
  if (!stub) return Acad::eNullObjectId;
  return AcDbImpObject::of(this).setText(kLayer, stub->database->recordName(*stub));
}

AcString AcDbEntity::linetypeName() const { return toWide(AcDbImpObject::of(this).record.text(kLinetype)).c_str(); }
Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name) {
  return AcDbImpObject::of(this).setText(kLinetype, toUtf8(name));
}
double AcDbEntity::linetypeScale() const { return AcDbImpObject::of(this).record.real(kScale); }
Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale) { return AcDbImpObject::of(this).setReal(kScale, scale); }
AcDb::LineWeight AcDbEntity::lineWeight() const {
  return static_cast<AcDb::LineWeight>(AcDbImpObject::of(this).record.integer(kWeight));
}
Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight) {
  return AcDbImpObject::of(this).setInteger(kWeight, weight);
}
AcDb::Visibility AcDbEntity::visibility() const {
  return AcDbImpObject::of(this).record.integer(kInvisible) ? AcDb::kInvisible : AcDb::kVisible;
}
Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility) {
  return AcDbImpObject::of(this).setInteger(kInvisible, visibility);
}

int AcDbEntity::transparencyPercent() const {
  const std::int64_t value = AcDbImpObject::of(this).record.integer(kTransparency);
  if ((value & kAlphaMark) == 0) return -1;
  return static_cast<int>(std::lround(static_cast<double>(255 - (value & 0xFF)) / 2.55));
}
Acad::ErrorStatus AcDbEntity::setTransparencyPercent(int percent) {
  if (percent < 0 || percent > 90) return Acad::eInvalidInput;
  return AcDbImpObject::of(this).setInteger(kTransparency, kAlphaMark | std::lround(255 * (100 - percent) / 100.0));
}

Acad::ErrorStatus AcDbEntity::setTransparency(const AcCmTransparency& transparency, bool) {
  return AcDbImpObject::of(this).setInteger(kTransparency, kAlphaMark | transparency.alpha());
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* source, bool) {
  if (!source) return Acad::eNullEntityPointer;
  Record* mine = AcDbImpObject::of(this).writable();
  if (!mine) return Acad::eNotOpenForWrite;
  const Record& theirs = AcDbImpObject::of(source).record;
  mine->setText(kLayer, theirs.text(kLayer));
  for (const Field& field : {kLinetype, kColor, kWeight, kScale, kInvisible, kTransparency}) {
    const Group* group = theirs.get(field);
    if (!group) mine->remove(field);
    else if (field.kind == FieldKind::text) mine->setText(field, group->text());
    else if (field.kind == FieldKind::real) mine->setReal(field, group->real());
    else mine->setInteger(field, group->integer());
  }
  return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
  const AcDbImpDatabase* db = database ? database->impDatabase() : databaseOf(this);
  if (!db) return;
  AcDbImpObject& imp = AcDbImpObject::of(this);
  imp.setText(kLayer, db->header.text("$CLAYER", "0"));
  if (const std::int64_t color = db->header.integer("$CECOLOR", 256); color != 256) imp.setInteger(kColor, color);
  if (const std::string type = db->header.text("$CELTYPE", "ByLayer"); !equalNoCase(type, "ByLayer"))
    imp.setText(kLinetype, type);
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
  AcDbExtents box;
  if (const Acad::ErrorStatus status = subGetGeomExtents(box); status != Acad::eOk) return status;
  const AcGePoint3d &low = box.minPoint(), &high = box.maxPoint();
  const bool ordered = low.x <= high.x && low.y <= high.y && low.z <= high.z;  // false where one is no number
  if (!ordered || !std::isfinite(low.x + low.y + low.z) || !std::isfinite(high.x + high.y + high.z))
    return Acad::eInvalidExtents;
  extents = box;
  return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& matrix) { return transformCarried(*this, matrix); }
Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&, Adesk::GsMarker,
                                            Adesk::GsMarker) const {
  return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, const AcGePlane&, AcGePoint3dArray&,
                                            Adesk::GsMarker, Adesk::GsMarker) const {
  return Acad::eNotApplicable;
}
