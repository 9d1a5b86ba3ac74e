// Finds the groups of what is copied, and enters their copies in the dictionary of groups.
// A group's erased members don't count: they are left out of its copy.
#include "atelier/database/objects/cloned_groups.h"

#include "atelier/database/objects/ownership.h"
#include "hote/dbdict.h"

namespace atelier {
namespace {

Record& recordOf(AcDbStub& stub) { return AcDbImpObject::of(&stub.database->object(stub)).record; }

bool isMember(const Group& group) { return group.code() == 340 && group.handle() != 0; }

// Whether the group has members and all were copied.
bool isWhole(AcDbStub& stub, const CloneMap& map) {
  bool any = false;
  for (const Group& group : recordOf(stub).groups) {
    AcDbStub* member = isMember(group) ? stub.database->stubOf(group.handle()) : nullptr;
    if (!member || member->is(AcDbStub::kErased)) continue;
    if (!map.contains(member)) return false;
    any = true;
  }
  return any;
}

}  // namespace

std::vector<AcDbStub*> wholeGroups(AcDbImpDatabase& database, const CloneMap& map) {
  std::vector<AcDbStub*> whole;
  for (const std::uint64_t handle : ownedHandles(recordOf(groupDictionary(database)))) {
    AcDbStub* group = database.stubOf(handle);
    if (!group || group->is(AcDbStub::kErased) || map.contains(group)) continue;
    if (AcDbGroup::cast(&database.object(*group)) && isWhole(*group, map)) whole.push_back(group);
  }
  return whole;
}

AcDbStub& groupDictionary(AcDbImpDatabase& database) { return database.namedDictionary("ACAD_GROUP"); }

void enterGroup(AcDbStub& stub) {
  AcDbImpDatabase& database = *stub.database;
  database.objects.push_back(&stub);
  Record& record = recordOf(stub);
  // Members that weren't copied are the erased ones.
  std::erase_if(record.groups, [&](const Group& group) {
    const AcDbStub* member = group.code() == 340 ? database.stubOf(group.handle()) : nullptr;
    return group.code() == 340 && (!member || member->is(AcDbStub::kErased));
  });
  // A group made by a program need not be known to its members; its copy is.
  for (const Group& group : record.groups)
    if (group.code() == 340)
      if (Record& member = recordOf(*database.stubOf(group.handle())); !inBraces(member, kReactors, stub.handle))
        addToBraces(member, kReactors, 330, stub.handle);
  addToBraces(record, kReactors, 330, stub.owner->handle);
  const AcDbObjectPointer<AcDbDictionary> groups(idOf(stub.owner), AcDb::kForWrite);
  const AcDbObjectPointer<AcDbGroup> group(idOf(&stub), AcDb::kForWrite);
  AcDbObjectId id;
  if (groups.openStatus() == Acad::eOk && group.openStatus() == Acad::eOk) groups->setAt(L"*", group.object(), id);
}

}  // namespace atelier
