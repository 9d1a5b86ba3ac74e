// Brace lists of a record, and erasing an object with what it owns.
// Owned handles are those of the reference's soft and hard owner codes, 350 to 369.
#include "atelier/database/objects/ownership.h"

#include <algorithm>

#include "atelier/database/objects/journal.h"

namespace atelier {
namespace {

auto at(Record& record, std::size_t i) { return record.groups.begin() + static_cast<std::ptrdiff_t>(i); }

}  // namespace

std::vector<std::uint64_t> ownedHandles(const Record& record) {
  std::vector<std::uint64_t> handles;
  for (const Group& group : record.groups) {
    if (group.code() >= 1000) break;
    if (group.code() >= 350 && group.code() <= 369 && group.handle() != 0) handles.push_back(group.handle());
  }
  return handles;
}

void eraseWithOwned(AcDbStub& stub, bool erasing) {
  if (stub.is(AcDbStub::kErased) == erasing) return;
  noteChange(stub);
  stub.set(AcDbStub::kErased, erasing);
  stub.set(AcDbStub::kChanged);
  stub.database->modified = true;
  if (stub.children)
    for (AcDbStub* child : *stub.children) eraseWithOwned(*child, erasing);
  // The BLOCK and ENDBLK of a block are erased with it.
  if (const auto ends = stub.database->blockEnds.find(&stub); ends != stub.database->blockEnds.end())
    for (AcDbStub* end : {ends->second.begin, ends->second.end})
      if (end) eraseWithOwned(*end, erasing);
  const AcDbObject& object = stub.database->object(stub);
  for (const std::uint64_t handle : ownedHandles(AcDbImpObject::of(&object).record))
    if (AcDbStub* owned = stub.database->stubOf(handle); owned && owned->owner == &stub)
      eraseWithOwned(*owned, erasing);
}

void removeBraces(Record& record, std::string_view name) {
  if (const auto bounds = record.braces(name))
    record.groups.erase(at(record, bounds->first - 1), at(record, std::min(bounds->second + 1, record.groups.size())));
}

void copyBraces(const Record& from, Record& to, std::string_view name) {
  removeBraces(to, name);
  const auto bounds = from.braces(name);
  if (!bounds) return;
  for (std::size_t i = bounds->first; i < bounds->second; ++i)
    addToBraces(to, name, from.groups[i].code(), from.groups[i].handle());
}

void addToBraces(Record& record, std::string_view name, int code, std::uint64_t handle) {
  if (const auto bounds = record.braces(name)) {
    record.groups.insert(at(record, bounds->second), Group::handle(code, handle));
    return;
  }
  std::size_t place = 1;  // after the handle
  while (place < record.groups.size() && (record.groups[place].code() == 5 || record.groups[place].code() == 105))
    ++place;
  if (name == kReactors && record.braces(kExtension)) place = record.braces(kExtension)->second + 1;
  const Group list[] = {Group::text(102, "{" + std::string(name)), Group::handle(code, handle), Group::text(102, "}")};
  record.groups.insert(at(record, place), std::begin(list), std::end(list));
}

bool removeFromBraces(Record& record, std::string_view name, std::uint64_t handle) {
  const auto bounds = record.braces(name);
  if (!bounds) return false;
  for (std::size_t i = bounds->first; i < bounds->second; ++i) {
    if (record.groups[i].handle() != handle) continue;
    record.groups.erase(at(record, i));
    if (bounds->second - bounds->first == 1) removeBraces(record, name);
    return true;
  }
  return false;
}

bool inBraces(const Record& record, std::string_view name, std::uint64_t handle) {
  const auto bounds = record.braces(name);
  if (!bounds) return false;
  for (std::size_t i = bounds->first; i < bounds->second; ++i)
    if (record.groups[i].handle() == handle) return true;
  return false;
}

}  // namespace atelier
