// Dictionaries and Xrecords.
// The entries of a dictionary are pairs of groups: 3 with the key, 350 or 360 with the handle.
#include "hote/dbdict.h"

#include "atelier/database/objects/chain.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "hote/acut.h"

using namespace atelier;

namespace {

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }
AcDbImpObject& impOf(AcDbObject* object) { return AcDbImpObject::of(object); }
AcDbImpDatabase& databaseOf(const AcDbDictionary* dictionary) { return *stubOf(dictionary)->database; }

constexpr Field kHardOwner = integerField("AcDbDictionary", 280);

bool isEntry(const Group& key, const Group& value) {
  return key.code() == 3 && (value.code() == 350 || value.code() == 360 || value.code() == 340 || value.code() == 330);
}

// Visits key and handle of each entry; stops when the visitor answers true. Gives the index of the key's group.
template <class VISIT>
std::size_t findEntry(const Record& record, VISIT visit) {
  const std::size_t end = record.xdataStart();
  for (std::size_t i = 0; i + 1 < end; ++i)
    if (isEntry(record.groups[i], record.groups[i + 1]) &&
        visit(record.groups[i].text(), record.groups[i + 1].handle()))
      return i;
  return Record::npos;
}

std::size_t findKey(const Record& record, std::string_view key) {
  return findEntry(record, [&](const std::string& name, std::uint64_t) { return equalNoCase(name, key); });
}

// The key "*" asks for a name of its own: "*A1", "*A2" ...
std::string nameOfItsOwn(const Record& record) {
  std::int64_t highest = 0;
  findEntry(record, [&](const std::string& name, std::uint64_t) {
    if (name.starts_with("*A")) highest = std::max(highest, parseInteger(std::string_view(name).substr(2)).value_or(0));
    return false;
  });
  return "*A" + std::to_string(highest + 1);
}

}  // namespace

AcDbDictionary::AcDbDictionary() { initRecord(*this, "DICTIONARY"); }

bool AcDbDictionary::has(const ACHAR* key) const {
  AcDbObjectId id;
  return getAt(key, id) == Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObjectId& id) const {
  const std::size_t i = findKey(recordOf(this), toUtf8(key));
  AcDbStub* stub = i == Record::npos ? nullptr : databaseOf(this).stubOf(recordOf(this).groups[i + 1].handle());
  if (!stub || stub->is(AcDbStub::kErased)) return Acad::eKeyNotFound;
  id = idOf(stub);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObject*& object, AcDb::OpenMode mode) const {
  object = nullptr;
  AcDbObjectId id;
  const Acad::ErrorStatus status = getAt(key, id);
  return status != Acad::eOk ? status : acdbOpenObject(object, id, mode);
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id) {
  if (!object) return Acad::eNullObjectPointer;
  AcDbStub* mine = stubOf(this);
  if (!mine) return Acad::eNoDatabase;
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  std::string name = toUtf8(key);
  if (name.empty()) return Acad::eInvalidKey;
  if (name == "*") {
    name = nameOfItsOwn(*record);
    if (object->isKindOf(AcDbGroup::desc())) static_cast<AcDbGroup*>(object)->setAnonymous();
  }
  AcDbImpDatabase& db = *mine->database;
  AcDbStub* stub = stubOf(object);
  if (!stub) {
    stub = &db.adopt(*object, *mine);
    db.objects.push_back(stub);
    addToBraces(AcDbImpObject::of(object).record, kReactors, 330, mine->handle);
  }
  const std::size_t i = findKey(*record, name);
  if (i != Record::npos) {
    AcDbStub* old = db.stubOf(record->groups[i + 1].handle());
    if (old && old != stub && old->owner == mine) eraseWithOwned(*old, true);
    record->groups[i + 1] = Group::handle(record->groups[i + 1].code(), stub->handle);
  } else {
    const Group entry[] = {Group::text(3, name), Group::handle(isTreatElementsAsHard() ? 360 : 350, stub->handle)};
    const auto end = record->groups.begin() + static_cast<std::ptrdiff_t>(record->xdataStart());
    record->groups.insert(end, std::begin(entry), std::end(entry));
  }
  id = idOf(stub);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key) {
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  const std::size_t i = findKey(*record, toUtf8(key));
  if (i == Record::npos) return Acad::eKeyNotFound;
  AcDbStub* stub = databaseOf(this).stubOf(record->groups[i + 1].handle());
  if (stub && stub->owner == stubOf(this)) eraseWithOwned(*stub, true);
  record->groups.erase(record->groups.begin() + static_cast<std::ptrdiff_t>(i),
                       record->groups.begin() + static_cast<std::ptrdiff_t>(i + 2));
  return Acad::eOk;
}
Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
  AcString key;
  const Acad::ErrorStatus status = nameAt(id, key);
  return status != Acad::eOk ? status : remove(key.kACharPtr());
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, AcString& key) const {
  const std::uint64_t handle = id.handle().value();
  const std::size_t i = findEntry(recordOf(this), [&](const std::string&, std::uint64_t h) { return h == handle; });
  if (i == Record::npos) return Acad::eKeyNotFound;
  key = AcString(toWide(recordOf(this).groups[i].text()).c_str());
  return Acad::eOk;
}
bool AcDbDictionary::isTreatElementsAsHard() const { return recordOf(this).integer(kHardOwner) != 0; }
Acad::ErrorStatus AcDbDictionary::setTreatElementsAsHard(bool hard) {
  return impOf(this).setInteger(kHardOwner, hard ? 1 : 0);
}
AcArray<AcString> AcDbDictionary::keys() const {
  AcArray<AcString> list;
  findEntry(recordOf(this), [&](const std::string& name, std::uint64_t handle) {
    const AcDbStub* stub = databaseOf(this).stubOf(handle);
    if (stub && !stub->is(AcDbStub::kErased)) list.append(AcString(toWide(name).c_str()));
    return false;
  });
  return list;
}
Adesk::UInt32 AcDbDictionary::numEntries() const { return static_cast<Adesk::UInt32>(keys().length()); }

// An Xrecord's items come after the cloning flag (280) at the start of its section.
namespace {

constexpr std::string_view kXrecord = "AcDbXrecord";

std::pair<std::size_t, std::size_t> items(const Record& record) {
  auto [begin, end] = record.section(kXrecord);
  if (begin == Record::npos) return {record.groups.size(), record.groups.size()};
  if (begin < end && record.groups[begin].code() == 280) ++begin;
  return {begin, end};
}

}  // namespace

AcDbXrecord::AcDbXrecord() { initRecord(*this, "XRECORD"); }

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase* database) const {
  AcDbImpDatabase* db = database ? database->impDatabase() : atelier::databaseOf(this);
  if (!db) return Acad::eNoDatabase;
  const Record& record = recordOf(this);
  const auto [begin, end] = items(record);
  *chain = toChain(std::span(record.groups).subspan(begin, end - begin), *db);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* database) {
  AcDbImpDatabase* db = database ? database->impDatabase() : atelier::databaseOf(this);
  if (!db) return Acad::eNoDatabase;
  std::vector<Group> groups;
  for (const resbuf* node = &chain; node; node = node->rbnext) appendGroups(groups, *node, *db);
  const Acad::ErrorStatus status = clear();
  if (status != Acad::eOk) return status;
  Record& record = impOf(this).record;
  const auto place = record.groups.begin() + static_cast<std::ptrdiff_t>(items(record).first);
  record.groups.insert(place, groups.begin(), groups.end());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::clear() {
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  const auto [begin, end] = items(*record);
  record->groups.erase(record->groups.begin() + static_cast<std::ptrdiff_t>(begin),
                       record->groups.begin() + static_cast<std::ptrdiff_t>(end));
  return Acad::eOk;
}
// References in a record are handles, which every clone translates: the flag has no effect.
bool AcDbXrecord::isXlateReferences() const { return true; }
Acad::ErrorStatus AcDbXrecord::setXlateReferences(bool) {
  return impOf(this).isWritable() ? Acad::eOk : Acad::eNotOpenForWrite;
}
