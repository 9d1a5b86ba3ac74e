// Dictionaries are read as they are stored: a key (3), then the object's handle (350 or 360).
#include "atelier/database/objects/extension_objects.h"

namespace atelier {
namespace {

AcDbStub* standing(AcDbImpDatabase& database, std::uint64_t handle) {
  AcDbStub* stub = handle ? database.stubOf(handle) : nullptr;
  return stub && !stub->is(AcDbStub::kErased) ? stub : nullptr;
}

AcDbStub* entry(AcDbImpDatabase& database, AcDbStub& dictionary, std::string_view key) {
  const Record& record = AcDbImpObject::of(&database.object(dictionary)).settled();
  for (std::size_t i = 0; i + 1 < record.groups.size(); ++i)
    if (record.groups[i].code() == 3 && equalNoCase(record.groups[i].text(), key))
      return standing(database, record.groups[i + 1].handle());
  return nullptr;
}

}  // namespace

AcDbStub* extensionObject(AcDbImpDatabase& database, const Record& above,
                          std::initializer_list<std::string_view> keys) {
  const auto bounds = above.braces("ACAD_XDICTIONARY");
  if (!bounds || bounds->first == bounds->second) return nullptr;
  AcDbStub* at = standing(database, above.groups[bounds->first].handle());
  for (const std::string_view key : keys)
    if (at) at = entry(database, *at, key);
  return at;
}

AcDbStub* rootObject(AcDbImpDatabase& database, std::string_view key) {
  return database.rootDictionary ? entry(database, *database.rootDictionary, key) : nullptr;
}

}  // namespace atelier
