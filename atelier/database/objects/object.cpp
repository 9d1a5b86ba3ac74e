// AcDbObject: identity, opening and closing, erasing, taking another object's place.
// Also the typed access to an object's record.
#include <algorithm>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/journal.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"

using namespace atelier;

namespace {

thread_local Record* pendingRecord = nullptr;
thread_local Record pendingStorage;
std::vector<AcDbObject*> openObjects;

}  // namespace

namespace atelier {

ParsedRecord::ParsedRecord(Record&& record) {
  pendingStorage = std::move(record);
  pendingRecord = &pendingStorage;
}
ParsedRecord::~ParsedRecord() { pendingRecord = nullptr; }

void initRecord(AcDbObject& object, std::string_view type) {
  AcDbImpObject& imp = AcDbImpObject::of(&object);
  if (!imp.record.groups.empty()) return;  // parsed: the base class has taken its record
  imp.record = pendingRecord ? std::move(*pendingRecord) : Record::fresh(type);
  pendingRecord = nullptr;
}

const Record* pendingRecordNow() { return pendingRecord; }

void OpenObjects::add(AcDbObject* object) { openObjects.push_back(object); }
void OpenObjects::remove(AcDbObject* object) {
  const auto it = std::find(openObjects.rbegin(), openObjects.rend(), object);
  if (it != openObjects.rend()) openObjects.erase(std::next(it).base());
}
std::size_t OpenObjects::count() { return openObjects.size(); }
const std::vector<AcDbObject*>& OpenObjects::list() { return openObjects; }
void OpenObjects::closeBeyond(std::size_t mark) {
  while (openObjects.size() > mark) openObjects.back()->close();
}

AcDbObjectId idOf(const AcDbStub* stub) { return AcDbObjectId(const_cast<AcDbStub*>(stub)); }
AcDbStub* stubOf(const AcDbObject* object) { return AcDbImpObject::of(object).stub; }
AcDbImpDatabase* databaseOf(const AcDbObject* object) {
  if (AcDbStub* stub = stubOf(object)) return stub->database;
  AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
  return working ? working->impDatabase() : nullptr;
}

}  // namespace atelier

Record* AcDbImpObject::writable() {
  if (!isWritable()) return nullptr;
  if (stub) {
    noteChange(*stub);
    stub->set(AcDbStub::kChanged);
    stub->database->modified = true;
  }
  return &record;
}

Record& AcDbImpObject::settled() {
  if (decoded && decoded->changed) {
    decoded->encode(record);
    decoded->changed = false;
  }
  return record;
}

#define ATELIER_SETTER(NAME, TYPE)                                        \
  Acad::ErrorStatus AcDbImpObject::NAME(const Field& field, TYPE value) { \
    Record* r = writable();                                               \
    if (!r) return Acad::eNotOpenForWrite;                                \
    r->NAME(field, value);                                                \
    return Acad::eOk;                                                     \
  }
ATELIER_SETTER(setReal, double)
ATELIER_SETTER(setInteger, std::int64_t)
ATELIER_SETTER(setText, std::string_view)
ATELIER_SETTER(setHandle, std::uint64_t)
ATELIER_SETTER(setPoint, const AcGePoint3d&)
#undef ATELIER_SETTER

AcDbObject::AcDbObject() : mpImpObject(new AcDbImpObject) {
  if (pendingRecord) initRecord(*this, "");
}

AcDbObject::~AcDbObject() {
  if (AcDbStub* stub = mpImpObject->stub; stub && stub->object == this) stub->object = nullptr;
  delete mpImpObject;
}

AcDbObjectId AcDbObject::objectId() const { return idOf(mpImpObject->stub); }
AcDbObjectId AcDbObject::ownerId() const { return mpImpObject->stub ? idOf(mpImpObject->stub->owner) : AcDbObjectId(); }
Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner) {
  AcDbStub* stub = mpImpObject->stub;
  if (!stub || owner.isNull()) return Acad::eNullObjectId;
  Record* record = mpImpObject->writable();
  if (!record) return Acad::eNotOpenForWrite;
  stub->owner = owner;
  record->setOwner(stub->owner->handle);
  return Acad::eOk;
}
void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
  if (mpImpObject->stub) mpImpObject->stub->set(AcDbStub::kHandleAsked);
  handle = AcDbHandle(mpImpObject->stub ? mpImpObject->stub->handle : 0);
}
AcDbDatabase* AcDbObject::database() const {
  return mpImpObject->stub ? &mpImpObject->stub->database->database() : nullptr;
}

bool AcDbObject::isErased() const { return mpImpObject->stub && mpImpObject->stub->is(AcDbStub::kErased); }
bool AcDbObject::isModified() const { return mpImpObject->stub && mpImpObject->stub->is(AcDbStub::kChanged); }
bool AcDbObject::isReadEnabled() const { return mpImpObject->isReadable(); }
bool AcDbObject::isWriteEnabled() const { return mpImpObject->isWritable(); }
bool AcDbObject::isNewObject() const { return !mpImpObject->stub || mpImpObject->stub->is(AcDbStub::kNew); }

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  object = nullptr;
  AcDbStub* stub = id;
  if (!stub) return Acad::eNullObjectId;
  if (stub->is(AcDbStub::kLost) || (stub->is(AcDbStub::kErased) && !openErased)) return Acad::eWasErased;
  AcDbObject& found = stub->database->object(*stub);
  AcDbImpObject& imp = AcDbImpObject::of(&found);
  if (imp.writer) return Acad::eWasOpenForWrite;
  if (mode == AcDb::kForWrite) {
    if (imp.readers > 0) return Acad::eWasOpenForRead;
    imp.writer = true;
  } else {
    ++imp.readers;
  }
  OpenObjects::add(&found);
  object = &found;
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  return acdbOpenObject(object, id, mode, openErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  return acdbOpenObject<AcDbEntity>(entity, id, mode, openErased);
}

Acad::ErrorStatus AcDbObject::close() {
  AcDbImpObject& imp = *mpImpObject;
  if (!imp.stub || (imp.readers == 0 && !imp.writer)) return Acad::eNotOpenForRead;
  if (imp.writer) {
    imp.settled();
    imp.writer = false;
  } else {
    --imp.readers;
  }
  OpenObjects::remove(this);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  AcDbImpObject& imp = *mpImpObject;
  if (!imp.stub) return Acad::eOk;
  if (imp.writer) return Acad::eWasOpenForWrite;
  if (imp.readers != 1) return imp.readers == 0 ? Acad::eNotOpenForRead : Acad::eHadMultipleReaders;
  imp.readers = 0;
  imp.writer = true;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
  AcDbImpObject& imp = *mpImpObject;
  if (!imp.writer) return Acad::eNotOpenForWrite;
  imp.settled();
  imp.writer = false;
  imp.readers = 1;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
  AcDbStub* stub = mpImpObject->stub;
  if (!stub) return Acad::eNoDatabase;
  if (!mpImpObject->writable()) return Acad::eNotOpenForWrite;
  if (stub->is(AcDbStub::kErased) == erasing) return erasing ? Acad::eWasErased : Acad::eOk;
  eraseWithOwned(*stub, erasing);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::handOverTo(AcDbObject* newObject, bool keepXData, bool keepExtDict) {
  AcDbImpObject& mine = *mpImpObject;
  if (!newObject) return Acad::eNullObjectPointer;
  if (!mine.stub || !mine.isWritable()) return Acad::eNotOpenForWrite;
  AcDbImpObject& theirs = AcDbImpObject::of(newObject);
  if (theirs.stub) return Acad::eAlreadyInDb;
  theirs.settled();
  AcDbStub& stub = *mine.stub;
  if (keepXData) {
    const Record& from = mine.settled();
    Record& to = theirs.record;
    to.groups.resize(to.xdataStart(), Group::integer(0, 0));
    to.groups.insert(to.groups.end(), from.groups.begin() + static_cast<std::ptrdiff_t>(from.xdataStart()),
                     from.groups.end());
  }
  theirs.record.setObjectHandle(stub.handle);
  if (stub.owner) theirs.record.setOwner(stub.owner->handle);
  if (keepExtDict) copyBraces(mine.record, theirs.record, "ACAD_XDICTIONARY");
  copyBraces(mine.record, theirs.record, "ACAD_REACTORS");
  // The old object's vertices or attributes are erased with it.
  if (stub.children && mine.record.type() != theirs.record.type())
    for (AcDbStub* child : *stub.children) eraseWithOwned(*child, true);
  mine.writable();
  OpenObjects::remove(this);
  mine.writer = false;
  mine.stub = nullptr;
  stub.object = newObject;
  stub.type = stub.database->typeIndexOf(theirs.record.type());
  theirs.stub = &stub;
  theirs.writer = true;
  OpenObjects::add(newObject);
  return Acad::eObjectToBeDeleted;
}

AcRxObject* AcDbObject::clone() const {
  const Record& mine = mpImpObject->settled();
  Record copy;
  copy.groups.reserve(mine.groups.size());
  for (const Group& group : mine.groups) copy.groups.push_back(group);
  removeBraces(copy, "ACAD_XDICTIONARY");
  removeBraces(copy, "ACAD_REACTORS");
  ParsedRecord parsed(std::move(copy));
  return makeObjectForPending(isKindOf(AcDbEntity::desc()));
}
