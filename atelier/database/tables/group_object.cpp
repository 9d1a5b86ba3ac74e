// AcDbGroup: a named set of entities.
// The group has a soft pointer (340) to each member, and each member a reactor that names the group.
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "hote/dbdict.h"

using namespace atelier;

namespace {

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }
AcDbImpObject& impOf(AcDbObject* object) { return AcDbImpObject::of(object); }
constexpr Field kDescription = textField("AcDbGroup", 300), kAnonymous = integerField("AcDbGroup", 70),
                kSelectable = integerField("AcDbGroup", 71, 1);

// The member's record is changed without opening it, because the caller may have it open.
Record& memberRecord(AcDbStub& member) {
  noteChange(member);
  member.set(AcDbStub::kChanged);
  return AcDbImpObject::of(&member.database->object(member)).record;
}

}  // namespace

AcDbGroup::AcDbGroup() { initRecord(*this, "GROUP"); }
AcDbGroup::AcDbGroup(const ACHAR* description, bool selectable) : AcDbGroup() {
  impOf(this).setText(kDescription, toUtf8(description));
  setSelectable(selectable);
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId entity) {
  AcDbStub* member = entity;
  if (!member) return Acad::eNullObjectId;
  AcDbStub* mine = stubOf(this);
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  if (!mine) return Acad::eNoDatabase;
  Record& theirs = memberRecord(*member);
  if (inBraces(theirs, kReactors, mine->handle)) return Acad::eAlreadyInGroup;
  addToBraces(theirs, kReactors, 330, mine->handle);
  const auto end = record->groups.begin() + static_cast<std::ptrdiff_t>(record->xdataStart());
  record->groups.insert(end, Group::handle(340, member->handle));
  return Acad::eOk;
}
Acad::ErrorStatus AcDbGroup::append(const AcDbObjectIdArray& entities) {
  Acad::ErrorStatus status = Acad::eOk;
  for (const AcDbObjectId id : entities)
    if (const Acad::ErrorStatus one = append(id); one != Acad::eOk) status = one;
  return status;
}
Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId entity) {
  AcDbStub* member = entity;
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  if (!member || !removeFromBraces(memberRecord(*member), kReactors, stubOf(this)->handle)) return Acad::eKeyNotFound;
  std::erase_if(record->groups, [&](const Group& g) { return g.code() == 340 && g.handle() == member->handle; });
  return Acad::eOk;
}
Acad::ErrorStatus AcDbGroup::clear() {
  AcDbObjectIdArray ids;
  allEntityIds(ids);
  for (const AcDbObjectId id : ids) remove(id);
  return impOf(this).isWritable() ? Acad::eOk : Acad::eNotOpenForWrite;
}
bool AcDbGroup::has(const AcDbEntity* entity) const {
  return entity && stubOf(this) && inBraces(recordOf(entity), kReactors, stubOf(this)->handle);
}
Adesk::UInt32 AcDbGroup::allEntityIds(AcDbObjectIdArray& ids) const {
  const Record& record = recordOf(this);
  const auto [begin, end] = record.section("AcDbGroup");
  for (std::size_t i = begin; begin != Record::npos && i < end; ++i) {
    if (record.groups[i].code() != 340) continue;
    AcDbStub* member = stubOf(this)->database->stubOf(record.groups[i].handle());
    if (member && !member->is(AcDbStub::kErased)) ids.append(idOf(member));
  }
  return static_cast<Adesk::UInt32>(ids.length());
}
Adesk::UInt32 AcDbGroup::numEntities() const {
  AcDbObjectIdArray ids;
  return allEntityIds(ids);
}
bool AcDbGroup::isAnonymous() const { return recordOf(this).integer(kAnonymous) != 0; }
Acad::ErrorStatus AcDbGroup::setAnonymous() { return impOf(this).setInteger(kAnonymous, 1); }
bool AcDbGroup::isSelectable() const { return recordOf(this).integer(kSelectable) != 0; }
Acad::ErrorStatus AcDbGroup::setSelectable(bool on) { return impOf(this).setInteger(kSelectable, on ? 1 : 0); }
AcString AcDbGroup::description() const { return toWide(recordOf(this).text(kDescription)).c_str(); }
AcString AcDbGroup::name() const {
  AcString key;
  const AcDbObjectPointer<AcDbDictionary> owner(ownerId());
  if (owner.openStatus() == Acad::eOk) owner->nameAt(objectId(), key);
  return key;
}
