// A run of the audit: what its checks share. Inner header of the room.
#pragma once
#include <unordered_map>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/journal.h"
#include "atelier/dxf/audit/audit.h"

namespace atelier::dxf {

class AuditRun {
 public:
  AuditRun(AcDbImpDatabase& database, bool fixing) : db(database), fixing_(fixing) {}
  AcDbImpDatabase& db;
  std::vector<Finding> findings;

  // Notes a finding; true when it is to be repaired, and notes it as repaired then. repairable: whether this one can be,
  // of a code that can be in general.
  bool found(std::string_view code, AcDbStub* stub, std::string text, bool repairable = true);
  // The object that lists this one as its own; null for none.
  AcDbStub* keeperOf(const AcDbStub& object);
  // The record of the object, for changing it.
  Record& changing(AcDbStub& stub) {
    noteChange(stub);
    AcDbImpObject& imp = AcDbImpObject::of(&db.object(stub));
    Record& record = imp.settled();
    imp.forgetDecoded();
    stub.set(AcDbStub::kChanged);
    db.modified = true;
    return record;
  }
  const Record& recordOf(AcDbStub& stub) { return AcDbImpObject::of(&db.object(stub)).settled(); }

 private:
  std::string placeOf(AcDbStub& stub);
  bool fixing_;
  bool keepersKnown_ = false;
  std::unordered_map<std::uint64_t, AcDbStub*> keepers_;  // by handle of what they own
};

// The checks, each over one object.
void checkOwner(AuditRun& run, AcDbStub& stub);
void checkPointers(AuditRun& run, AcDbStub& stub);
void checkNames(AuditRun& run, AcDbStub& stub);
void checkValues(AuditRun& run, AcDbStub& stub);
void checkExtendedData(AuditRun& run, AcDbStub& stub);
void checkKeeper(AuditRun& run, AcDbStub& stub);
void checkSymbolName(AuditRun& run, AcDbStub& stub);
void checkDimension(AuditRun& run, AcDbStub& stub);

}  // namespace atelier::dxf
