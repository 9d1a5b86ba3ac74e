// Objects that hang below another one: in its extension dictionary, or in dictionaries within that.
// Inner header of the room.
#pragma once
#include <initializer_list>
#include <string_view>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// The object that these keys lead to, from the record of the one above; null when there is none.
AcDbStub* extensionObject(AcDbImpDatabase& database, const Record& above, std::initializer_list<std::string_view> keys);

// The object below the root dictionary; null when there is none.
AcDbStub* rootObject(AcDbImpDatabase& database, std::string_view key);

}  // namespace atelier
