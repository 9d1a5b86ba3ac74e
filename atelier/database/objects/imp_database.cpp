// Stubs, handles, tables and the parsing of objects on demand.
// The dxf room fills in the structure when it reads a file; later changes go through adopt() and the flags of stubs.
#include "atelier/database/objects/imp_database.h"

#include <algorithm>

#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "atelier/database/records/section_order.h"

namespace atelier {
namespace {

std::unique_ptr<DrawingReader> theReader;

}  // namespace

void setDrawingReader(std::unique_ptr<DrawingReader> reader) { theReader = std::move(reader); }
DrawingReader& drawingReader() {
  ATELIER_ASSERT(theReader);
  return *theReader;
}

AcDbStub* HandleMap::find(std::uint64_t handle) const {
  const auto page = pages_.find(handle / kPage);
  return page == pages_.end() ? nullptr : page->second[handle % kPage];
}

void HandleMap::insert(AcDbStub* stub) {
  const std::uint64_t number = stub->handle / kPage;
  if (!page_ || number != number_) {
    page_ = &pages_[number];
    number_ = number;
  }
  AcDbStub*& place = (*page_)[stub->handle % kPage];
  if (!place) place = stub;
}

}  // namespace atelier

using namespace atelier;

AcDbImpDatabase::AcDbImpDatabase(AcDbDatabase& database) : database_(database) {}

AcDbImpDatabase::~AcDbImpDatabase() {
  for (AcDbStub& stub : stubs_) {
    if (!stub.object) continue;
    while (stub.object->close() == Acad::eOk) {}
    delete stub.object;
  }
}

std::uint16_t AcDbImpDatabase::typeIndexOf(std::string_view type) {
  // A drawing has some forty types; a slot chosen by length, first and last letter nearly always holds the right one.
  const std::size_t slot =
      type.empty()
          ? 0
          : (type.size() * 7 + static_cast<unsigned char>(type[0]) + 3u * static_cast<unsigned char>(type.back())) %
                recentTypes_.size();
  if (const std::uint16_t recent = recentTypes_[slot]; recent < types_.size() && types_[recent] == type) return recent;
  const auto [it, added] = typeIndex_.try_emplace(std::string(type), static_cast<std::uint16_t>(types_.size()));
  if (added) types_.emplace_back(type);
  return recentTypes_[slot] = it->second;
}

AcDbStub& AcDbImpDatabase::addStub(std::uint64_t handle, std::string_view type, AcDbStub* owner) {
  AcDbStub& stub = stubs_.emplace_back();
  stub.handle = handle;
  stub.database = this;
  stub.owner = owner;
  stub.type = typeIndexOf(type);
  if (handle != 0) {
    handles_.insert(&stub);
    raiseHandleSeed(handle);
  }
  return stub;
}

AcDbStub* AcDbImpDatabase::stubOrLost(std::uint64_t handle) {
  if (AcDbStub* stub = stubOf(handle)) return stub;
  AcDbStub& lost = lost_[handle];
  lost.handle = handle;
  lost.database = this;
  lost.set(AcDbStub::kErased);
  lost.set(AcDbStub::kLost);
  return &lost;
}

std::uint64_t AcDbImpDatabase::takeHandle() { return seed_++; }

void AcDbImpDatabase::giveHandle(AcDbStub& stub) {
  stub.handle = takeHandle();
  handles_.insert(&stub);
}

void AcDbImpDatabase::raiseHandleSeed(std::uint64_t above) { seed_ = std::max(seed_, above + 1); }

namespace {

std::string tableClassName(const Record& head) {
  static constexpr std::pair<std::string_view, std::string_view> kTables[] = {{"BLOCK_RECORD", "AcDbBlockTable"},
                                                                              {"LAYER", "AcDbLayerTable"},
                                                                              {"STYLE", "AcDbTextStyleTable"},
                                                                              {"LTYPE", "AcDbLinetypeTable"},
                                                                              {"APPID", "AcDbRegAppTable"}};
  for (const Group& group : head.groups)
    if (group.code() == 2)
      for (const auto& [table, name] : kTables)
        if (group.text() == table) return std::string(name);
  return "AcDbSymbolTable";
}

std::string classOf(const Record& record) {
  const std::string_view type = record.type();
  if (type == "TABLE") return tableClassName(record);
  if (type == "POLYLINE") {
    std::int64_t flags = 0;
    for (const std::string_view kind : {"AcDb2dPolyline", "AcDb3dPolyline", "AcDbPolygonMesh", "AcDbPolyFaceMesh"})
      flags |= record.integer(integerField(kind, 70));
    if (flags & PolylineFlags::kSpace) return "AcDb3dPolyline";
    if (flags & (PolylineFlags::kMesh | PolylineFlags::kPolyface)) return "AcDbEntity";
    return "AcDb2dPolyline";
  }
  const RecordFormat* format = formatOf(type);
  return format ? std::string(format->className) : std::string();
}

}  // namespace

namespace atelier {

AcDbObject* makeObjectForPending(bool entity) {
  AcRxClass* rxClass = classNamed(classOf(*pendingRecordNow()));
  if (AcRxObject* made = rxClass ? rxClass->create() : nullptr) return static_cast<AcDbObject*>(made);
  return entity ? static_cast<AcDbObject*>(new CarriedEntity) : new CarriedObject;
}

}  // namespace atelier

AcDbObject& AcDbImpDatabase::object(AcDbStub& stub) {
  if (stub.object) return *stub.object;
  ATELIER_ASSERT(source);
  Record record = source->read(stub.offset, stub.length);
  arrangeSections(record);
  if (stub.handle != 0 && record.objectHandle() == 0) record.setObjectHandle(stub.handle);
  ParsedRecord parsed(std::move(record));
  AcDbObject* made = makeObjectForPending(stub.is(AcDbStub::kEntity));
  AcDbImpObject::of(made).stub = &stub;
  stub.object = made;
  if (stub.is(AcDbStub::kEntity)) {
    parsed_.push_back(&stub);
    if (parsed_.size() > kMostIdle) dropIdle();
  }
  return *made;
}

void AcDbImpDatabase::replaceObject(AcDbStub& stub, Record record) {
  delete stub.object;
  stub.type = typeIndexOf(record.type());
  ParsedRecord parsed(std::move(record));
  AcDbObject* made = makeObjectForPending(stub.is(AcDbStub::kEntity));
  AcDbImpObject::of(made).stub = &stub;
  stub.object = made;
}

void AcDbImpDatabase::dropIdle() {
  // Only the oldest few are looked at each time, so that no single opening takes long.
  for (int i = 0; i < 4 && parsed_.size() > kMostIdle; ++i) {
    AcDbStub& stub = *parsed_.front();
    parsed_.pop_front();
    if (!stub.object || stub.is(AcDbStub::kChanged)) continue;
    const AcDbImpObject& imp = AcDbImpObject::of(stub.object);
    if (imp.readers > 0 || imp.writer) parsed_.push_back(&stub);
    else delete stub.object;
  }
}

AcDbStub& AcDbImpDatabase::adopt(AcDbObject& object, AcDbStub& owner) {
  AcDbImpObject& imp = AcDbImpObject::of(&object);
  ATELIER_ASSERT(!imp.stub);
  imp.settled();
  AcDbStub& stub = addStub(takeHandle(), imp.record.type(), &owner);
  stub.set(AcDbStub::kNew);
  stub.set(AcDbStub::kChanged);
  const bool entity = object.isKindOf(AcDbEntity::desc());
  if (entity) stub.set(AcDbStub::kEntity);
  noteChange(stub);
  imp.record.setObjectHandle(stub.handle);
  imp.record.setOwner(owner.handle);
  if (entity) {
    const Field layer = textField("AcDbEntity", 8);
    if (imp.record.text(layer).empty()) imp.record.setText(layer, header.text("$CLAYER", "0"));
  }
  imp.stub = &stub;
  imp.writer = true;
  stub.object = &object;
  OpenObjects::add(&object);
  modified = true;
  return stub;
}

AcDbStub& AcDbImpDatabase::adoptFollower(AcDbObject& object, AcDbStub& parent) {
  if (!parent.children) {
    parent.children = std::make_unique<std::vector<AcDbStub*>>();
    auto* end = new CarriedEntity;
    initRecord(*end, "SEQEND");
    parent.children->push_back(&adopt(*end, parent));
    end->close();
  }
  AcDbStub& added = adopt(object, parent);
  parent.children->insert(parent.children->end() - 1, &added);
  return added;
}

AcDbStub* AcDbImpDatabase::table(std::string_view name) const {
  for (const auto& [key, head] : tables_)
    if (key == name) return head;
  return nullptr;
}

void AcDbImpDatabase::setTable(std::string_view name, AcDbStub& head) {
  if (!head.children) head.children = std::make_unique<std::vector<AcDbStub*>>();
  tables_.emplace_back(name, &head);
}

std::string AcDbImpDatabase::recordName(AcDbStub& stub) {
  const Record& record = AcDbImpObject::of(&object(stub)).record;
  for (const Group& group : record.groups)
    if (group.code() == 2) return group.text();
  return {};
}

AcDbStub* AcDbImpDatabase::tableRecord(std::string_view tableName, std::string_view name) {
  AcDbStub* head = table(tableName);
  if (!head) return nullptr;
  auto [it, isNew] = tableIndex_.try_emplace(head);
  if (isNew)
    for (AcDbStub* record : *head->children)
      if (!record->is(AcDbStub::kErased)) it->second.try_emplace(upperCase(recordName(*record)), record);
  const auto found = it->second.find(upperCase(name));
  return found == it->second.end() || found->second->is(AcDbStub::kErased) ? nullptr : found->second;
}

AcDbStub* AcDbImpDatabase::modelSpace() {
  if (!modelSpace_ || modelSpace_->is(AcDbStub::kErased)) modelSpace_ = tableRecord("BLOCK_RECORD", "*Model_Space");
  return modelSpace_;
}
AcDbStub* AcDbImpDatabase::paperSpace() { return tableRecord("BLOCK_RECORD", "*Paper_Space"); }
AcDbStub* AcDbImpDatabase::currentSheet() { return sheet_ && !sheet_->is(AcDbStub::kErased) ? sheet_ : paperSpace(); }
