// A run of the audit: what its checks share. Inner header of the room.
#pragma once
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/journal.h"
#include "atelier/dxf/audit/audit.h"

namespace atelier::dxf {

class AuditRun {
 public:
  AuditRun(AcDbImpDatabase& database, bool fixing) : db(database), fixing_(fixing) {}
  AcDbImpDatabase& db;
  std::vector<Finding> findings;

  // Notes a finding; true when it is to be repaired, and notes it as repaired then.
  bool found(std::string_view code, AcDbStub* stub, std::string text);
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
};

// The checks, each over one object.
void checkOwner(AuditRun& run, AcDbStub& stub);
void checkPointers(AuditRun& run, AcDbStub& stub);
void checkNames(AuditRun& run, AcDbStub& stub);
void checkValues(AuditRun& run, AcDbStub& stub);
void checkExtendedData(AuditRun& run, AcDbStub& stub);

}  // namespace atelier::dxf
