// Entities made of their groups, for types that have no class of their own.
// Inner header of the room.
#pragma once
#include <memory>
#include <vector>

#include "atelier/database/objects/imp_object.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbents.h"

namespace atelier {

inline std::unique_ptr<AcDbEntity> entityOf(Record record) {
  const ParsedRecord waiting(std::move(record));
  return std::unique_ptr<AcDbEntity>(AcDbEntity::cast(makeObjectForPending(true)));
}

inline std::vector<Group> ordinates(int code, const AcGePoint3d& p) {
  return {Group::real(code, p.x), Group::real(code + 10, p.y), Group::real(code + 20, p.z)};
}

}  // namespace atelier
