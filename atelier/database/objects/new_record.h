// How a typed object gets its record: a new one is made from the format table, a parsed one is handed over.
// Inner header of the room.
#pragma once
#include <string_view>

#include "atelier/database/objects/imp_object.h"

namespace atelier {

// While one of these lives, the next object made takes this record instead of a fresh one.
class ParsedRecord {
 public:
  explicit ParsedRecord(Record&& record);
  ~ParsedRecord();
  ParsedRecord(const ParsedRecord&) = delete;
  ParsedRecord& operator=(const ParsedRecord&) = delete;
};

const Record* pendingRecordNow();

// The object for the record that waits, of the class that its type asks for.
AcDbObject* makeObjectForPending(bool entity);

void initRecord(AcDbObject& object, std::string_view type);

// Makes the record of a flat polyline or vertex one in space: another mark, and a flag in group 70. One that has not the
// flat mark stays as it is.
void putInSpace(Record& record, std::string_view flatMark, std::string_view spatialMark, std::int64_t flag);

// An object of a type without a class of its own, in a block or among the objects.
class CarriedObject : public AcDbObject {};
class CarriedEntity : public AcDbEntity {};

}  // namespace atelier
