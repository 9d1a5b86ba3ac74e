// A part as an entity, for what entities can do: extents, transformations. Inner header of the room.
#pragma once
#include <memory>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"

namespace atelier {

// It has a stub of its own while it lives: it finds its styles and blocks in the right drawing.
class PartEntity {
 public:
  PartEntity(AcDbImpDatabase& database, Record part) {
    const ParsedRecord waiting(std::move(part));
    object_.reset(makeObjectForPending(true));
    stub_.database = &database;
    stub_.object = object_.get();
    stub_.set(AcDbStub::kEntity);
    AcDbImpObject& imp = AcDbImpObject::of(object_.get());
    imp.stub = &stub_;
    imp.readers = 1;
  }
  ~PartEntity() { leaveStub(); }
  PartEntity(const PartEntity&) = delete;
  PartEntity& operator=(const PartEntity&) = delete;

  template <class Class = AcDbEntity>
  const Class* as() const {
    return Class::cast(object_.get());
  }
  // The record after a transformation.
  Record transformed(const AcGeMatrix3d& matrix) {
    leaveStub();
    if (auto* entity = AcDbEntity::cast(object_.get())) entity->transformBy(matrix);
    return AcDbImpObject::of(object_.get()).settled();
  }

 private:
  void leaveStub() {
    AcDbImpObject& imp = AcDbImpObject::of(object_.get());
    imp.stub = nullptr;
    imp.readers = 0;
  }
  AcDbStub stub_;
  std::unique_ptr<AcDbObject> object_;
};

}  // namespace atelier
