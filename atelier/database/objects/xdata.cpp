// Extended data, extension dictionaries and reactors of an object.
// XDATA stands at the end of a record: a group 1001 opens the data of an application, up to the next 1001.
#include "atelier/database/objects/chain.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/ownership.h"
#include "hote/acut.h"
#include "hote/dbdict.h"

using namespace atelier;

namespace {

// Bounds of one application's data in the record, the 1001 included; begin == end when there is none.
std::pair<std::size_t, std::size_t> dataOf(const Record& record, std::string_view application) {
  const std::size_t size = record.groups.size();
  for (std::size_t i = record.xdataStart(); i < size; ++i) {
    if (record.groups[i].code() != 1001 || !equalNoCase(record.groups[i].text(), application)) continue;
    std::size_t end = i + 1;
    while (end < size && record.groups[end].code() != 1001) ++end;
    return {i, end};
  }
  return {size, size};
}

}  // namespace

resbuf* AcDbObject::xData(const ACHAR* application) const {
  AcDbImpDatabase* db = databaseOf(this);
  if (!db) return nullptr;
  const Record& record = mpImpObject->record;
  std::pair<std::size_t, std::size_t> bounds(record.xdataStart(), record.groups.size());
  if (application) bounds = dataOf(record, toUtf8(application));
  return toChain(std::span(record.groups).subspan(bounds.first, bounds.second - bounds.first), *db);
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
  AcDbImpDatabase* db = databaseOf(this);
  if (!db) return Acad::eNoDatabase;
  if (!chain || chain->restype != 1001) return Acad::eInvalidInput;
  // Everything is checked before anything is changed.
  std::vector<Group> groups;
  for (const resbuf* node = chain; node; node = node->rbnext) {
    if (node->restype < 1000 || node->restype > 1071) return Acad::eInvalidDxfCode;
    if (node->restype == 1001 && !db->tableRecord("APPID", stringOf(*node))) return Acad::eRegappIdNotFound;
    appendGroups(groups, *node, *db);
  }
  Record* record = mpImpObject->writable();
  if (!record) return Acad::eNotOpenForWrite;
  const auto at = [](std::vector<Group>& list, std::size_t i) { return list.begin() + static_cast<std::ptrdiff_t>(i); };
  for (std::size_t i = 0; i < groups.size();) {
    std::size_t end = i + 1;
    while (end < groups.size() && groups[end].code() != 1001) ++end;
    const auto [first, last] = dataOf(*record, groups[i].text());
    record->groups.erase(at(record->groups, first), at(record->groups, last));
    if (end - i > 1)
      record->groups.insert(at(record->groups, std::min(first, record->groups.size())), at(groups, i), at(groups, end));
    i = end;
  }
  return Acad::eOk;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
  const AcDbStub* stub = mpImpObject->stub;
  const auto bounds = mpImpObject->record.braces(kExtension);
  if (!stub || !bounds || bounds->first == bounds->second) return AcDbObjectId();
  AcDbStub* dictionary = stub->database->stubOf(mpImpObject->record.groups[bounds->first].handle());
  return dictionary && !dictionary->is(AcDbStub::kErased) ? idOf(dictionary) : AcDbObjectId();
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
  AcDbStub* stub = mpImpObject->stub;
  if (!stub) return Acad::eNoDatabase;
  Record* record = mpImpObject->writable();
  if (!record) return Acad::eNotOpenForWrite;
  if (!extensionDictionary().isNull()) return Acad::eAlreadyInDb;
  auto* dictionary = new AcDbDictionary;
  dictionary->setTreatElementsAsHard(true);
  AcDbStub& made = stub->database->adopt(*dictionary, *stub);
  stub->database->objects.push_back(&made);
  dictionary->close();
  removeBraces(*record, kExtension);
  addToBraces(*record, kExtension, 360, made.handle);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary() {
  AcDbStub* dictionary = extensionDictionary();
  if (!dictionary) return Acad::eKeyNotFound;
  Record* record = mpImpObject->writable();
  if (!record) return Acad::eNotOpenForWrite;
  eraseWithOwned(*dictionary, true);
  removeBraces(*record, kExtension);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor) {
  Record* record = mpImpObject->writable();
  if (!record) return Acad::eNotOpenForWrite;
  if (!hasPersistentReactor(reactor)) addToBraces(*record, kReactors, 330, reactor.handle().value());
  return Acad::eOk;
}
Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId reactor) {
  Record* record = mpImpObject->writable();
  if (!record) return Acad::eNotOpenForWrite;
  return removeFromBraces(*record, kReactors, reactor.handle().value()) ? Acad::eOk : Acad::eKeyNotFound;
}
bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const {
  return inBraces(mpImpObject->record, kReactors, reactor.handle().value());
}
