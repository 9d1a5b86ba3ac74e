// entmake: lists are read into records, checked, and only then put into the drawing.
// Runs (blocks, attributes, vertices) are kept between the calls.
#include <algorithm>

#include "atelier/database/lists/entity_groups.h"
#include "atelier/database/lists/list_groups.h"
#include "atelier/database/lists/list_references.h"
#include "atelier/database/lists/record_checks.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

AcDbObject* objectFrom(Record record, bool entity) {
  ParsedRecord parsed(std::move(record));
  return makeObjectForPending(entity);
}

}  // namespace

AcDbStub* EntityMaker::takeSpace(std::vector<Group>& groups) {
  constexpr int kPaper = 67, kLayout = 410;
  const std::string layout = textOf(groups, kLayout);
  const auto paper = std::ranges::find(groups, kPaper, &Group::code);
  AcDbStub* space = db_.database().currentSpaceId();
  if (AcDbStub* named = layout.empty() ? nullptr : spaceOfLayout(db_, layout)) space = named;
  else if (paper != groups.end() && layout.empty() && db_.currentSheet())
    space = paper->integer() != 0 ? db_.currentSheet() : db_.modelSpace();
  std::erase_if(groups, [](const Group& g) { return g.code() == kPaper || g.code() == kLayout; });
  return block_ ? block_ : space;
}

EntityMaker::Result EntityMaker::make(std::vector<Group> groups) {
  const std::string type = upperCase(textOf(groups, 0));
  if (type.empty() || !referencesExist(db_, groups, nullptr)) return {};
  for (Group& group : groups)
    if (group.code() == 0) group = Group::text(0, type);
  if (!block_ && !parent_ && !tableForType(type).empty()) return makeRecord(tableForType(type), std::move(groups));
  return makeEntity(std::move(groups));
}

EntityMaker::Result EntityMaker::makeRecord(std::string_view table, std::vector<Group> groups) {
  AcDbStub* head = db_.table(table);
  const std::string name = textOf(groups, 2);
  if (!head || name.empty() || db_.tableRecord(table, name)) return {};
  AcDbObject* made = objectFrom(listedRecord(std::move(groups)), false);
  AcDbStub& stub = db_.adopt(*made, *head);
  made->close();
  head->children->push_back(&stub);
  db_.forgetTableIndex();
  return {true, &stub};
}

EntityMaker::Result EntityMaker::openBlock(const Record& given) {
  const std::string name = given.text(textField("AcDbBlockBegin", 2));
  AcDbStub* existing = db_.tableRecord("BLOCK_RECORD", name);
  if (existing && !name.starts_with('*')) {
    // The block is redefined: its old contents are erased.
    for (AcDbStub* child : *existing->children) eraseWithOwned(*child, true);
    block_ = existing;
  } else {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTable> table(db_.database().blockTableId(), AcDb::kForWrite);
    auto* block = new AcDbBlockTableRecord;
    block->setName(toWide(name).c_str());
    if (table.openStatus() != Acad::eOk || table->add(id, block) != Acad::eOk) {
      delete block;
      return {};
    }
    block->close();
    block_ = id;
  }
  const AcDbObjectPointer<AcDbBlockTableRecord> block(idOf(block_), AcDb::kForWrite);
  if (block.openStatus() == Acad::eOk) block->setOrigin(given.point(pointField("AcDbBlockBegin", 10)));
  return {true, nullptr};
}

EntityMaker::Result EntityMaker::follow(Record given) {
  const bool ends = given.type() == "SEQEND";
  // The mark of the vertex follows from its polyline when the list leaves it out.
  if (given.type() == "VERTEX") {
    constexpr std::string_view kOwn[] = {"AcDb2dVertex", "AcDb3dPolylineVertex", "AcDbPolyFaceMeshVertex",
                                         "AcDbPolygonMeshVertex", "AcDbFaceRecord"};
    if (std::none_of(std::begin(kOwn), std::end(kOwn),
                     [&](std::string_view mark) { return given.section(mark).first != Record::npos; })) {
      std::erase_if(given.groups, [](const Group& g) { return g.code() == 100; });
      given = arrangedRecord(given.groups);
    }
    if (AcDb3dPolyline::cast(&db_.object(*parent_)))
      putInSpace(given, "AcDb2dVertex", "AcDb3dPolylineVertex", VertexFlags::kSpace);
  }
  ensureLayer(db_, given);
  AcDbObject* made = objectFrom(std::move(given), true);
  AcDbStub& stub = db_.adopt(*made, *parent_);
  made->close();
  if (!parent_->children) parent_->children = std::make_unique<std::vector<AcDbStub*>>();
  parent_->children->push_back(&stub);
  AcDbStub* head = parent_;
  if (ends) parent_ = nullptr;
  return {true, ends ? head : nullptr};
}

EntityMaker::Result EntityMaker::makeEntity(std::vector<Group> groups) {
  if (!hasNeeded(groups)) return {};
  AcDbStub* block = takeSpace(groups);
  Record given = listedRecord(std::move(groups));
  if (!canBe(given, nullptr)) return {};
  const std::string type(given.type());
  if (type == "BLOCK") return block_ || parent_ ? Result{} : openBlock(given);
  if (parent_) return type == "SEQEND" || type == "VERTEX" || type == "ATTRIB" ? follow(std::move(given)) : Result{};
  if (type == "ENDBLK") {
    AcDbStub* defined = block_;
    block_ = nullptr;
    return {defined != nullptr, defined};
  }
  if (type == "SEQEND" || type == "VERTEX" || type == "ATTRIB" ||
      (!formatOf(type) && given.section("AcDbEntity").first == Record::npos))
    return {};
  if (type == "INSERT" && !db_.tableRecord("BLOCK_RECORD", given.text(textField("AcDbBlockReference", 2)))) return {};
  if (type == "ATTDEF" && !block_ && given.text(textField("AcDbAttributeDefinition", 2)).empty()) return {};
  ensureLayer(db_, given);
  const bool followed =
      type == "POLYLINE" || (type == "INSERT" && given.integer(integerField("AcDbBlockReference", 66)) == 1);
  if (const std::string layout = layoutNameOf(*block); !layout.empty() && block != db_.modelSpace())
    given.setInteger(integerField("AcDbEntity", 67), 1);
  AcDbObject* made = objectFrom(std::move(given), true);
  AcDbStub& stub = db_.adopt(*made, *block);
  made->close();
  block->children->push_back(&stub);
  if (followed) parent_ = &stub;
  return {true, followed ? nullptr : &stub};
}

AcDbStub* makeLooseObject(AcDbImpDatabase& db, std::vector<Group> groups) {
  if (textOf(groups, 0).empty() || !referencesExist(db, groups, nullptr)) return nullptr;
  if (!db.rootDictionary) db.makeRootDictionary();
  AcDbObject* made = objectFrom(listedRecord(std::move(groups)), false);
  AcDbStub& stub = db.adopt(*made, *db.rootDictionary);
  made->close();
  db.objects.push_back(&stub);
  return &stub;
}

}  // namespace atelier
