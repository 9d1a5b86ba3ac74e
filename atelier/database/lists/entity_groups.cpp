// entget and entmod on records.
// A list is merged into the record, checked, and only then the object is changed.
#include "atelier/database/lists/entity_groups.h"

#include <algorithm>

#include "atelier/database/lists/list_groups.h"
#include "atelier/database/lists/list_references.h"
#include "atelier/database/lists/merged_record.h"
#include "atelier/database/lists/record_checks.h"
#include "atelier/database/lists/shown_groups.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "atelier/database/tables/renaming.h"
#include "hote/dbdict.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

bool named(std::span<const std::string> applications, const std::string& application) {
  return std::any_of(applications.begin(), applications.end(),
                     [&](const std::string& a) { return a == "*" || equalNoCase(a, application); });
}

// An extension dictionary named in the list becomes the object's own.
void takeExtension(AcDbStub& stub, const Record& record) {
  const auto bounds = record.braces(kExtension);
  if (!bounds || bounds->first == bounds->second) return;
  AcDbStub* dictionary = stub.database->stubOf(record.groups[bounds->first].handle());
  if (!dictionary || dictionary->owner == &stub) return;
  dictionary->owner = &stub;
  dictionary->set(AcDbStub::kChanged);
  AcDbImpObject::of(&stub.database->object(*dictionary)).record.setOwner(stub.handle);
}

}  // namespace

std::string_view tableForType(std::string_view type) {
  for (const std::string_view name :
       {"LAYER", "STYLE", "LTYPE", "APPID", "DIMSTYLE", "VIEW", "UCS", "VPORT", "BLOCK_RECORD"})
    if (name == type) return name;
  return {};
}

GroupList groupsOf(AcDbStub& stub, std::span<const std::string> applications) {
  stub.set(AcDbStub::kHandleAsked);
  GroupList groups = shownGroups(stub);
  anglesInRadians(groups);
  const Record& record = AcDbImpObject::of(&stub.database->object(stub)).record;
  bool wanted = false;
  for (std::size_t i = record.xdataStart(); i < record.groups.size(); ++i) {
    if (record.groups[i].code() == 1001) wanted = named(applications, record.groups[i].text());
    if (wanted) groups.keep(record.groups[i]);
  }
  return groups;
}

namespace {

// The XDATA of the applications that the list names replaces theirs; a lone name removes it, that of others stays.
void mergeXdata(const Record& before, Record& after, const std::vector<Group>& given) {
  std::vector<std::string> replaced;
  const auto first = std::ranges::find(given, 1001, &Group::code);
  for (auto i = first; i != given.end(); ++i) {
    if (i->code() != 1001) continue;
    replaced.push_back(i->text());
    const auto end = std::find_if(i + 1, given.end(), [](const Group& g) { return g.code() == 1001; });
    if (end - i > 1) after.groups.insert(after.groups.end(), i, end);
  }
  bool kept = false;
  for (std::size_t i = before.xdataStart(); i < before.groups.size(); ++i) {
    if (before.groups[i].code() == 1001) kept = !named(replaced, before.groups[i].text());
    if (kept) after.groups.push_back(before.groups[i]);
  }
}

// The record of a symbol table that a list gives another name: itself, or that of the BLOCK whose list it is.
AcDbStub* tableRecordOf(AcDbStub& stub) {
  const std::string_view type = stub.database->typeName(stub);
  if (type == "BLOCK") return stub.owner;
  return tableForType(type).empty() ? nullptr : &stub;
}

// Whether the object has the name of the list, or gets it.
bool takeName(AcDbStub& stub, const std::vector<Group>& given) {
  const std::string name = textOf(given, 2);
  AcDbStub* record = name.empty() ? nullptr : tableRecordOf(stub);
  return !record || stub.database->recordName(*record) == name || renameRecord(*record, name) == Renaming::done;
}

}  // namespace

bool changeObject(AcDbStub& stub, std::vector<Group> groups) {
  AcDbImpDatabase& db = *stub.database;
  std::erase_if(groups, [](const Group& g) { return g.code() < 0; });
  anglesInDegrees(groups);
  const Record before = AcDbImpObject::of(&db.object(stub)).settled();
  const std::string type = textOf(groups, 0);
  if (!type.empty() && !equalNoCase(type, before.type())) return false;
  Record after = mergedRecord(stub, groups);
  if (!referencesExist(db, groups, &before) || !canBe(after, &before)) return false;
  mergeXdata(before, after, groups);
  if (!takeName(stub, groups)) return false;
  AcDbObject* opened = nullptr;
  if (acdbOpenObject(opened, idOf(&stub), AcDb::kForWrite) != Acad::eOk) return false;
  if (stub.is(AcDbStub::kEntity)) ensureLayer(db, after);
  AcDbImpObject& imp = AcDbImpObject::of(opened);
  Record* record = imp.writable();
  imp.forgetDecoded();
  *record = std::move(after);
  takeExtension(stub, *record);
  opened->close();
  if (!tableForType(before.type()).empty()) db.forgetTableIndex();
  return true;
}

}  // namespace atelier
