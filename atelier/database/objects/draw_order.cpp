// A table below the block gives some entities the handle of another place; the others stand at their own handle.
#include "atelier/database/objects/draw_order.h"

#include <algorithm>
#include <unordered_map>

#include "atelier/database/objects/extension_objects.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbdict.h"
#include "hote/dbsymtb.h"

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

namespace {

// A record of the table's type; objects of types without a class are made from their record.
AcDbStub* madeTable(AcDbStub& block) {
  const AcDbObjectPointer<AcDbBlockTableRecord> head(idOf(&block), AcDb::kForWrite);
  if (head.openStatus() != Acad::eOk) return nullptr;
  if (head->extensionDictionary().isNull()) head->createExtensionDictionary();
  const AcDbObjectPointer<AcDbDictionary> dictionary(head->extensionDictionary(), AcDb::kForWrite);
  if (dictionary.openStatus() != Acad::eOk) return nullptr;
  const ParsedRecord pending(Record(std::vector<Group>{Group::text(0, "SORTENTSTABLE"), Group::handle(5, 0),
                                                       Group::handle(330, 0), Group::text(100, "AcDbSortentsTable")}));
  AcDbObject* table = makeObjectForPending(false);
  AcDbObjectId id;
  if (dictionary->setAt(L"ACAD_SORTENTS", table, id) != Acad::eOk) return nullptr;
  table->close();
  return id;
}

}  // namespace

void setDrawOrder(AcDbImpDatabase& database, AcDbStub& block, const std::vector<AcDbStub*>& order) {
  AcDbStub* table = extensionObject(database, AcDbImpObject::of(&database.object(block)).settled(), {"ACAD_SORTENTS"});
  if (!table) table = madeTable(block);
  AcDbObject* opened = nullptr;
  if (!table || acdbOpenObject(opened, idOf(table), AcDb::kForWrite) != Acad::eOk) return;
  std::vector<std::uint64_t> places;
  for (const AcDbStub* stub : order) places.push_back(stub->handle);
  std::ranges::sort(places);
  if (Record* record = AcDbImpObject::of(opened).writable()) {
    auto& groups = record->groups;
    const auto [begin, end] = record->section("AcDbSortentsTable");
    if (begin != Record::npos)
      groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(begin),
                   groups.begin() + static_cast<std::ptrdiff_t>(end));
    groups.push_back(Group::handle(330, block.handle));
    for (std::size_t i = 0; i < order.size(); ++i) {
      groups.push_back(Group::handle(331, order[i]->handle));
      groups.push_back(Group::handle(5, places[i]));
    }
  }
  opened->close();
}

}  // namespace atelier
