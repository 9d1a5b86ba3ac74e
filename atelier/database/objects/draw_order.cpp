// A table below the block gives some entities the handle of another place; the others stand at their own handle.
#include "atelier/database/objects/draw_order.h"

#include <algorithm>
#include <unordered_map>

#include "atelier/database/objects/extension_objects.h"

namespace atelier {
namespace {

std::unordered_map<std::uint64_t, std::uint64_t> placesOf(AcDbImpDatabase& database, AcDbStub& block) {
  std::unordered_map<std::uint64_t, std::uint64_t> places;
  const Record& head = AcDbImpObject::of(&database.object(block)).record;
  AcDbStub* table = extensionObject(database, head, {"ACAD_SORTENTS"});
  if (!table) return places;
  const Record& record = AcDbImpObject::of(&database.object(*table)).settled();
  std::uint64_t entity = 0;
  // Behind the mark, so that the table's own handle isn't one of the places.
  const auto [begin, end] = record.section("AcDbSortentsTable");
  for (std::size_t i = begin; begin != Record::npos && i < end; ++i) {
    const Group& group = record.groups[i];
    if (group.code() == 331) entity = group.handle();
    if (group.code() == 5 && entity) places[entity] = group.handle();
  }
  return places;
}

}  // namespace

std::vector<AcDbStub*> inDrawOrder(AcDbImpDatabase& database, AcDbStub& block) {
  std::vector<AcDbStub*> order;
  if (!block.children) return order;
  std::ranges::copy_if(*block.children, std::back_inserter(order),
                       [](const AcDbStub* stub) { return !stub->is(AcDbStub::kErased); });
  const auto places = placesOf(database, block);
  if (places.empty()) return order;
  const auto placeOf = [&](const AcDbStub* stub) {
    const auto place = places.find(stub->handle);
    return place == places.end() ? stub->handle : place->second;
  };
  std::ranges::stable_sort(order, {}, placeOf);
  return order;
}

}  // namespace atelier
