// Finds the objects whose handles must be written.
// A handle that an application has asked for may be stored anywhere, so it counts as referred to.
#include "atelier/dxf/writing/references.h"

#include <algorithm>
#include <vector>

#include "atelier/database/objects/ownership.h"

namespace atelier::dxf {
namespace {

void noteReferences(AcDbStub& stub, std::vector<AcDbStub*>& found) {
  AcDbImpDatabase& db = *stub.database;
  // Entities and table records are written without their owners in drawings that have no handles.
  const bool ownerWritten = !stub.is(AcDbStub::kEntity) && (!stub.owner || db.typeName(*stub.owner) != "TABLE");
  for (const Group& group : AcDbImpObject::of(&db.object(stub)).settled().groups) {
    if (!isReference(group.code()) || group.handle() == 0) continue;
    AcDbStub* target = db.stubOf(group.handle());
    if (target && (ownerWritten || target != stub.owner) && target->is(AcDbStub::kHandleless)) found.push_back(target);
  }
}

}  // namespace

bool isReference(int code) {
  return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481 || code == 1005;
}

bool leadsToErased(const AcDbImpDatabase& db, const Group& group) {
  if (!isReference(group.code()) || group.handle() == 0) return false;
  const AcDbStub* target = db.stubOf(group.handle());
  return target && target->is(AcDbStub::kErased);
}

void settleErased(AcDbImpDatabase& db) {
  const auto changed = [](AcDbStub* stub) {
    if (stub && !stub->is(AcDbStub::kErased)) stub->set(AcDbStub::kChanged);
  };
  for (const AcDbStub& stub : db.stubs()) {
    if (!stub.is(AcDbStub::kErased)) continue;
    const Record& record = AcDbImpObject::of(&db.object(const_cast<AcDbStub&>(stub))).record;
    const bool group = record.type() == "GROUP",
               listed = record.type() == "XRECORD" || record.type() == "DICTIONARY" || group;
    if (const auto reactors = record.braces(kReactors))
      for (std::size_t i = reactors->first; i < reactors->second; ++i) changed(db.stubOf(record.groups[i].handle()));
    if (listed) changed(stub.owner);
    if (!group) continue;
    for (const Group& member : record.groups)
      if (member.code() == 340) changed(db.stubOf(member.handle()));
  }
}

bool writesHandle(const AcDbStub& stub) { return !stub.is(AcDbStub::kHandleless) || stub.is(AcDbStub::kHandleAsked); }

void settleHandles(AcDbImpDatabase& db) {
  if (!db.modified) return;
  std::vector<AcDbStub*> written, wanted;
  bool any = false;
  for (const AcDbStub& stub : db.stubs()) {
    if (stub.is(AcDbStub::kHandleless)) any = true;
    if (stub.is(AcDbStub::kChanged) && !stub.is(AcDbStub::kErased)) written.push_back(const_cast<AcDbStub*>(&stub));
  }
  if (!any) return;
  for (AcDbStub* stub : written) noteReferences(*stub, wanted);
  for (const AcDbStub& stub : db.stubs())
    if (stub.is(AcDbStub::kHandleless) && stub.is(AcDbStub::kHandleAsked))
      wanted.push_back(const_cast<AcDbStub*>(&stub));
  for (AcDbStub* stub : wanted) {
    if (stub->is(AcDbStub::kVirtual)) continue;
    stub->set(AcDbStub::kHandleAsked);
    if (!stub->is(AcDbStub::kErased)) stub->set(AcDbStub::kChanged);
  }
}

}  // namespace atelier::dxf
