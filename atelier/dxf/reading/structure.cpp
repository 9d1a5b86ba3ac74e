// Blocks, spaces and owners of a file being read.
// Drawings up to R12 have no block records and no objects: stand-ins are made for them, which are not written.
#include "atelier/dxf/reading/structure.h"

#include "hote/dbsymtb.h"

namespace atelier::dxf {
namespace {

void giveChildren(AcDbStub& block) {
  if (!block.children) block.children = std::make_unique<std::vector<AcDbStub*>>();
}

// Makes the stand-in for a record that the file doesn't have.
AcDbStub& standIn(AcDbImpDatabase& db, AcDbObject* object, std::string_view type, AcDbStub* owner) {
  AcDbStub& stub = db.addStub(0, type, owner);
  stub.set(AcDbStub::kVirtual);
  stub.object = object;
  AcDbImpObject::of(object).stub = &stub;
  return stub;
}

// Tables that must exist, and the records that every drawing has.
struct DefaultRecord {
  std::string_view table, tableClass, name;
};
constexpr DefaultRecord kDefaults[] = {
    {"LTYPE", "AcDbLinetypeTable", "ByBlock"},    {"LTYPE", "AcDbLinetypeTable", "ByLayer"},
    {"LTYPE", "AcDbLinetypeTable", "Continuous"}, {"LAYER", "AcDbLayerTable", "0"},
    {"STYLE", "AcDbTextStyleTable", "Standard"},  {"APPID", "AcDbRegAppTable", "ACAD"}};

AcDbSymbolTableRecord* makeRecord(std::string_view table) {
  if (table == "LTYPE") return new AcDbLinetypeTableRecord;
  if (table == "LAYER") return new AcDbLayerTableRecord;
  if (table == "STYLE") return new AcDbTextStyleTableRecord;
  return new AcDbRegAppTableRecord;
}

}  // namespace

void Structure::noteTableRecord(std::string_view type, std::string_view name) {
  for (std::size_t i = 0; i < std::size(kDefaults); ++i)
    if (kDefaults[i].table == type && equalNoCase(kDefaults[i].name, name)) defaultsSeen_ |= 1u << i;
}

// Makes stand-ins for what the file lacks; one is written only when something in it changes.
void Structure::completeTables() {
  for (std::size_t i = 0; i < std::size(kDefaults); ++i) {
    const DefaultRecord& row = kDefaults[i];
    AcDbStub* head = db_.table(row.table);
    if (!head) {
      auto* table = static_cast<AcDbObject*>(classNamed(row.tableClass)->create());
      AcDbImpObject::of(table).record = Record({Group::text(0, "TABLE"), Group::text(2, std::string(row.table)),
                                                Group::text(100, "AcDbSymbolTable"), Group::integer(70, 0)});
      head = &standIn(db_, table, "TABLE", nullptr);
      db_.setTable(row.table, *head);
      db_.giveHandle(*head);
    }
    if (defaultsSeen_ >> i & 1) continue;
    AcDbSymbolTableRecord* record = makeRecord(row.table);
    record->setName(toWide(row.name).c_str());
    AcDbStub& stub = standIn(db_, record, row.table, head);
    db_.giveHandle(stub);
    AcDbImpObject::of(record).record.setOwner(head->handle);
    head->children->push_back(&stub);
  }
}

AcDbStub& Structure::virtualRecord(const std::string& name) {
  AcDbStub* head = db_.table("BLOCK_RECORD");
  if (!head) {
    auto* table = new AcDbBlockTable;
    AcDbImpObject::of(table).record = Record({Group::text(0, "TABLE"), Group::text(2, "BLOCK_RECORD"),
                                              Group::text(100, "AcDbSymbolTable"), Group::integer(70, 0)});
    head = &standIn(db_, table, "TABLE", nullptr);
    db_.setTable("BLOCK_RECORD", *head);
    handleless_.push_back(head);
  }
  auto* block = new AcDbBlockTableRecord;
  block->setName(toWide(name).c_str());
  AcDbStub& stub = standIn(db_, block, "BLOCK_RECORD", head);
  head->children->push_back(&stub);
  giveChildren(stub);
  db_.forgetTableIndex();
  handleless_.push_back(&stub);
  return stub;
}

AcDbStub& Structure::openBlock(AcDbStub& begin, std::uint64_t owner, const std::string& name) {
  AcDbStub* block = db_.stubOf(owner);
  if (!block || db_.typeName(*block) != "BLOCK_RECORD") block = db_.tableRecord("BLOCK_RECORD", name);
  // R12 names its spaces with a dollar sign.
  if (!block && equalNoCase(name, "$MODEL_SPACE")) block = &space("*Model_Space", model_);
  else if (!block && equalNoCase(name, "$PAPER_SPACE")) block = &space("*Paper_Space", paper_);
  else if (!block) block = &virtualRecord(name);
  giveChildren(*block);
  begin.owner = block;
  db_.blockEnds[block].begin = &begin;
  return *block;
}

void Structure::closeBlock(AcDbStub& block, AcDbStub* end) { db_.blockEnds[&block].end = end; }

void Structure::noteHandleless(AcDbStub& stub) {
  stub.set(AcDbStub::kHandleless);
  handleless_.push_back(&stub);
}

void Structure::noteDictionary(AcDbStub& stub, std::uint64_t owner) {
  if (db_.rootDictionary && (owner != 0 || !rootIsOwned_)) return;
  db_.rootDictionary = &stub;
  rootIsOwned_ = owner != 0;
}

AcDbStub& Structure::space(const std::string& name, AcDbStub*& kept) {
  if (!kept) kept = db_.tableRecord("BLOCK_RECORD", name);
  if (!kept) kept = &virtualRecord(name);
  giveChildren(*kept);
  return *kept;
}

AcDbStub& Structure::spaceOf(std::uint64_t owner, bool paperSpace) {
  // Neighbours mostly have the same owner.
  if (owner != 0 && owner == lastOwner_) return *lastSpace_;
  if (owner != 0) {
    AcDbStub* block = db_.stubOf(owner);
    if (block && db_.typeName(*block) == "BLOCK_RECORD") {
      giveChildren(*block);
      lastOwner_ = owner;
      lastSpace_ = block;
      return *block;
    }
  }
  return paperSpace ? space("*Paper_Space", paper_) : space("*Model_Space", model_);
}

void Structure::finish() {
  if (const auto* seed = db_.header.find("$HANDSEED"); seed && !seed->values.empty() && seed->values[0].handle() > 0)
    db_.raiseHandleSeed(seed->values[0].handle() - 1);
  for (const auto& [stub, owner] : owners_) stub->owner = db_.stubOf(owner);
  space("*Model_Space", model_);
  space("*Paper_Space", paper_);
  for (AcDbStub* stub : handleless_) db_.giveHandle(*stub);
  completeTables();
  if (!db_.rootDictionary) db_.makeRootDictionary();
  db_.modified = !layout_.repairs.empty() || layout_.endMissing;
}

}  // namespace atelier::dxf
