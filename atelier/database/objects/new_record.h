// How a typed object gets its record: from the format table when it is new, else the parsed one.
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

// Makes the object for the record that is waiting, of the class for its type.
AcDbObject* makeObjectForPending(bool entity);

void initRecord(AcDbObject& object, std::string_view type);

// Turns the record of a flat polyline or vertex into a three-dimensional one: changes the mark and sets a flag in group
// 70. A record without the flat mark is unchanged.
void putInSpace(Record& record, std::string_view flatMark, std::string_view spatialMark, std::int64_t flag);

// An object of a type without a class of its own, in a block or among the objects.
class CarriedObject : public AcDbObject {};
class CarriedEntity : public AcDbEntity {};

}  // namespace atelier
