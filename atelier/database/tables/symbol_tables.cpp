// Symbol tables and their records.
// A block record stands for three records of the file: its entry in the table, BLOCK and ENDBLK.
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"

#include "atelier/base/interruption.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/database/objects/new_record.h"

using namespace atelier;

namespace {

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }
AcDbImpObject& impOf(AcDbObject* object) { return AcDbImpObject::of(object); }

std::string tableNameOf(const AcDbObject* table) { return stubOf(table)->database->recordName(*stubOf(table)); }

// Origin and comments of a block that is in no database yet: they belong to its BLOCK, which it doesn't have.
struct PendingBlock : AcDbImpObject::Decoded {
  AcGePoint3d origin;
  std::string comments;
  void encode(Record&) const override {}
};

constexpr Field kOrigin = pointField("AcDbBlockBegin", 10);
constexpr Field kComments = textField("AcDbBlockBegin", 4);

PendingBlock& pendingOf(AcDbObject* block) {
  AcDbImpObject& imp = impOf(block);
  if (!imp.decoded) imp.decoded = std::make_unique<PendingBlock>();
  return static_cast<PendingBlock&>(*imp.decoded);
}

AcDbObject* blockBegin(const AcDbObject* block) {
  AcDbStub* stub = stubOf(block);
  if (!stub) return nullptr;
  const auto it = stub->database->blockEnds.find(stub);
  return it == stub->database->blockEnds.end() || !it->second.begin ? nullptr
                                                                    : &stub->database->object(*it->second.begin);
}

// "*U", "*D" and others take the next number that is free.
std::string nameOfItsOwn(AcDbImpDatabase& db, const std::string& prefix) {
  for (int number = static_cast<int>(db.table("BLOCK_RECORD")->children->size());; ++number) {
    const std::string name = prefix + std::to_string(number);
    if (!db.tableRecord("BLOCK_RECORD", name)) return name;
  }
}

AcDbStub* makeEnd(AcDbStub& block, std::string_view type) {
  auto* object = new CarriedEntity;
  initRecord(*object, type);
  AcDbStub& stub = block.database->adopt(*object, block);
  object->close();
  return &stub;
}

void makeBlockEnds(AcDbBlockTableRecord& block, const AcGePoint3d& origin, const std::string& comments) {
  AcDbStub& stub = *stubOf(&block);
  const std::string name = stub.database->recordName(stub);
  AcDbStub* begin = makeEnd(stub, "BLOCK");
  Record& record = AcDbImpObject::of(begin->object).record;
  record.setText(textField("AcDbBlockBegin", 2), name);
  record.setText(textField("AcDbBlockBegin", 3), name);
  record.setInteger(integerField("AcDbBlockBegin", 70), name.starts_with('*') ? 1 : 0);
  record.setPoint(kOrigin, origin);
  if (!comments.empty()) record.setText(kComments, comments);
  stub.database->blockEnds[&stub] = {begin, makeEnd(stub, "ENDBLK")};
  stub.children = std::make_unique<std::vector<AcDbStub*>>();
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTableRecord::getName(AcString& name) const {
  for (const Group& group : recordOf(this).groups)
    if (group.code() == 2) {
      name = AcString(toWide(group.text()).c_str());
      return Acad::eOk;
    }
  return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  const RecordFormat* format = formatOf(record->type());
  if (!format || toUtf8(name).empty()) return Acad::eInvalidInput;
  record->setText(textField(format->subclasses.back(), 2), toUtf8(name));
  if (AcDbStub* stub = stubOf(this)) stub->database->forgetTableIndex();
  return Acad::eOk;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
  AcDbObjectId id;
  return getAt(name, id) == Acad::eOk;
}
bool AcDbSymbolTable::has(AcDbObjectId id) const {
  const AcDbStub* stub = id;
  return stub && stub->owner == stubOf(this) && !stub->is(AcDbStub::kErased);
}
Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool) const {
  AcDbStub* found = stubOf(this)->database->tableRecord(tableNameOf(this), toUtf8(name));
  if (!found) return Acad::eKeyNotFound;
  id = idOf(found);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
  if (!record) return Acad::eNullObjectPointer;
  if (!impOf(this).writable()) return Acad::eNotOpenForWrite;
  AcDbStub& head = *stubOf(this);
  AcDbImpDatabase& db = *head.database;
  AcString name;
  record->getName(name);
  std::string text = toUtf8(name.kACharPtr());
  const bool isBlock = tableNameOf(this) == "BLOCK_RECORD";
  if (isBlock && (text == "*U" || text == "*D" || text == "*X" || text == "*T")) {
    text = nameOfItsOwn(db, text);
    record->setName(toWide(text).c_str());
  }
  if (text.empty()) return Acad::eInvalidInput;
  if (db.tableRecord(tableNameOf(this), text)) return Acad::eDuplicateRecordName;
  AcGePoint3d origin;
  std::string comments;
  if (isBlock && impOf(record).decoded) {
    origin = pendingOf(record).origin;
    comments = pendingOf(record).comments;
    impOf(record).forgetDecoded();
  }
  AcDbStub& stub = db.adopt(*record, head);
  head.children->push_back(&stub);
  db.forgetTableIndex();
  if (isBlock) makeBlockEnds(*static_cast<AcDbBlockTableRecord*>(record), origin, comments);
  id = idOf(&stub);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
  AcDbObjectId id;
  return add(id, record);
}

AcDbObjectIdArray AcDbSymbolTable::ids() const {
  AcDbObjectIdArray list;
  for (AcDbStub* child : *stubOf(this)->children)
    if (!child->is(AcDbStub::kErased)) list.append(idOf(child));
  return list;
}

AcDbBlockTableRecord::AcDbBlockTableRecord() { initRecord(*this, "BLOCK_RECORD"); }

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
  checkInterruption();
  if (!entity) return Acad::eNullEntityPointer;
  AcDbStub* stub = stubOf(this);
  if (!stub) return Acad::eNoDatabase;
  if (!impOf(this).isWritable()) return Acad::eNotOpenForWrite;
  if (stubOf(entity)) return Acad::eAlreadyInDb;
  AcDbStub& added = stub->database->adopt(*entity, *stub);
  stub->children->push_back(&added);
  if (isPaperSpace(*stub)) AcDbImpObject::of(entity).record.setInteger(integerField("AcDbEntity", 67), 1);
  id = idOf(&added);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
  AcDbObjectId id;
  return appendAcDbEntity(id, entity);
}

AcDbObjectIdArray adaptation::entityIds(const AcDbBlockTableRecord& block) {
  AcDbObjectIdArray ids;
  if (const AcDbStub* stub = stubOf(&block); stub && stub->children)
    for (AcDbStub* child : *stub->children)
      if (!child->is(AcDbStub::kErased)) ids.append(idOf(child));
  return ids;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
  if (const AcDbObject* begin = blockBegin(this)) return recordOf(begin).point(kOrigin);
  return stubOf(this) ? AcGePoint3d() : pendingOf(const_cast<AcDbBlockTableRecord*>(this)).origin;
}
Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
  if (!impOf(this).isWritable()) return Acad::eNotOpenForWrite;
  AcDbObject* begin = blockBegin(this);
  if (!begin) {
    pendingOf(this).origin = origin;
    return Acad::eOk;
  }
  const AcDbObjectPointer<AcDbObject> opened(begin->objectId(), AcDb::kForWrite);
  return impOf(begin).setPoint(kOrigin, origin);
}
Acad::ErrorStatus AcDbBlockTableRecord::comments(AcString& text) const {
  const AcDbObject* begin = blockBegin(this);
  if (begin) text = AcString(toWide(recordOf(begin).text(kComments)).c_str());
  else
    text = stubOf(this) ? AcString()
                        : AcString(toWide(pendingOf(const_cast<AcDbBlockTableRecord*>(this)).comments).c_str());
  return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text) {
  if (!impOf(this).isWritable()) return Acad::eNotOpenForWrite;
  AcDbObject* begin = blockBegin(this);
  if (!begin) {
    pendingOf(this).comments = toUtf8(text);
    return Acad::eOk;
  }
  const AcDbObjectPointer<AcDbObject> opened(begin->objectId(), AcDb::kForWrite);
  return impOf(begin).setText(kComments, toUtf8(text));
}
bool AcDbBlockTableRecord::isAnonymous() const {
  const AcDbObject* begin = blockBegin(this);
  return begin && (recordOf(begin).integer(integerField("AcDbBlockBegin", 70)) & 1);
}
bool AcDbBlockTableRecord::isLayout() const {
  AcString name;
  getName(name);
  const std::string upper = upperCase(toUtf8(name.kACharPtr()));
  return upper.starts_with("*MODEL_SPACE") || upper.starts_with("*PAPER_SPACE");
}
bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
  const AcDbStub* stub = stubOf(this);
  if (!stub || !stub->children) return false;
  for (AcDbStub* child : *stub->children)
    if (!child->is(AcDbStub::kErased) && stub->database->typeName(*child) == "ATTDEF") return true;
  return false;
}

namespace {

constexpr std::string_view kLayer = "AcDbLayerTableRecord", kStyle = "AcDbTextStyleTableRecord",
                           kLtype = "AcDbLinetypeTableRecord";
constexpr Field kLayerTrueColor = integerField(kLayer, 420), kLayerColorName = textField(kLayer, 430);
constexpr Field kLayerColor = integerField(kLayer, 62, 7), kLayerFlags = integerField(kLayer, 70),
                kLayerWeight = integerField(kLayer, 370, -3), kLayerLinetype = textField(kLayer, 6, "Continuous");

Acad::ErrorStatus setFlag(AcDbObject* layer, std::int64_t flag, bool on) {
  const std::int64_t flags = recordOf(layer).integer(kLayerFlags);
  return impOf(layer).setInteger(kLayerFlags, on ? flags | flag : flags & ~flag);
}

}  // namespace

AcDbLayerTableRecord::AcDbLayerTableRecord() { initRecord(*this, "LAYER"); }
AcCmColor AcDbLayerTableRecord::color() const {
  AcCmColor color;
  color.setColorIndex(static_cast<Adesk::UInt16>(std::abs(recordOf(this).integer(kLayerColor))));
  return color;
}
// A number takes the place of a true colour, with the name that it had in a book of colours.
void AcDbLayerTableRecord::setColor(const AcCmColor& color) {
  if (atelier::Record* record = impOf(this).writable()) {
    record->remove(kLayerTrueColor);
    record->remove(kLayerColorName);
  }
  impOf(this).setInteger(kLayerColor, isOff() ? -std::int64_t(color.colorIndex()) : color.colorIndex());
}
// A layer that is off is stored with a negative colour.
bool AcDbLayerTableRecord::isOff() const { return recordOf(this).integer(kLayerColor) < 0; }
bool AcDbLayerTableRecord::isFrozen() const { return recordOf(this).integer(kLayerFlags) & LayerFlags::kFrozen; }
bool AcDbLayerTableRecord::isLocked() const { return recordOf(this).integer(kLayerFlags) & LayerFlags::kLocked; }
void AcDbLayerTableRecord::setIsOff(bool off) {
  const std::int64_t color = std::abs(recordOf(this).integer(kLayerColor));
  impOf(this).setInteger(kLayerColor, off ? -color : color);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) { return setFlag(this, LayerFlags::kFrozen, frozen); }
void AcDbLayerTableRecord::setIsLocked(bool locked) { setFlag(this, LayerFlags::kLocked, locked); }
AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const {
  return static_cast<AcDb::LineWeight>(recordOf(this).integer(kLayerWeight));
}
Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
  return impOf(this).setInteger(kLayerWeight, weight);
}
AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const {
  AcDbImpDatabase* db = databaseOf(this);
  return db ? idOf(db->tableRecord("LTYPE", recordOf(this).text(kLayerLinetype))) : AcDbObjectId();
}
void AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
  if (AcDbStub* stub = id) impOf(this).setText(kLayerLinetype, stub->database->recordName(*stub));
}

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() { initRecord(*this, "STYLE"); }
AcString AcDbTextStyleTableRecord::fileName() const {
  return toWide(recordOf(this).text(textField(kStyle, 3))).c_str();
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* file) {
  return impOf(this).setText(textField(kStyle, 3), toUtf8(file));
}
double AcDbTextStyleTableRecord::xScale() const { return recordOf(this).real(realField(kStyle, 41, 1)); }
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
  return impOf(this).setReal(realField(kStyle, 41), scale);
}
double AcDbTextStyleTableRecord::obliquingAngle() const {
  return recordOf(this).real(realField(kStyle, 50)) * 3.14159265358979323846 / 180;
}
double AcDbTextStyleTableRecord::textSize() const { return recordOf(this).real(realField(kStyle, 40)); }
Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
  return impOf(this).setReal(realField(kStyle, 40), size);
}

AcDbLinetypeTableRecord::AcDbLinetypeTableRecord() { initRecord(*this, "LTYPE"); }
int AcDbLinetypeTableRecord::numDashes() const {
  return static_cast<int>(recordOf(this).integer(integerField(kLtype, 73)));
}
double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
  for (const Group& group : recordOf(this).groups)
    if (group.code() == 49 && index-- == 0) return group.real();
  return 0;
}
double AcDbLinetypeTableRecord::patternLength() const { return recordOf(this).real(realField(kLtype, 40)); }

AcDbRegAppTableRecord::AcDbRegAppTableRecord() { initRecord(*this, "APPID"); }
