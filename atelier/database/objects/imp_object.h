// The body of an object: its record, its stub, and who has it open.
// Typed classes read and write the record through it; large parts are decoded once and written back on closing.
#pragma once
#include <memory>

#include "atelier/database/objects/stub.h"
#include "atelier/database/records/record.h"
#include "hote/dbmain.h"

class AcDbImpObject {
 public:
  // Part of a record in a form that is quicker to work on, such as the vertices of a polyline.
  struct Decoded {
    virtual ~Decoded() = default;
    virtual void encode(atelier::Record& record) const = 0;
    bool changed = false;
  };

  static AcDbImpObject& of(const AcDbObject* object) { return *object->impObject(); }

  bool isReadable() const { return !stub || readers > 0 || writer; }
  bool isWritable() const { return !stub || writer; }
  // The record, to be changed (the change is noted for undo); null when the object is not open for write.
  atelier::Record* writable();
  // The record with all decoded parts put back.
  atelier::Record& settled();
  void forgetDecoded() { decoded.reset(); }

  Acad::ErrorStatus setReal(const atelier::Field& field, double value);
  Acad::ErrorStatus setInteger(const atelier::Field& field, std::int64_t value);
  Acad::ErrorStatus setText(const atelier::Field& field, std::string_view utf8);
  Acad::ErrorStatus setHandle(const atelier::Field& field, std::uint64_t value);
  Acad::ErrorStatus setPoint(const atelier::Field& field, const AcGePoint3d& value);

  atelier::Record record;
  AcDbStub* stub = nullptr;  // null for an object that is in no database
  int readers = 0;
  bool writer = false;
  std::unique_ptr<Decoded> decoded;
};
