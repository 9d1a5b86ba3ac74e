// entget, entmod and entmake on records.
// A list need not be complete: missing subclass marks and required groups are added from the format table.
#include "atelier/database/lists/entity_groups.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "hote/dbdict.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

constexpr Field kLayer = textField("AcDbEntity", 8);

// Groups 50 to 58 are angles: degrees in the drawing, radians in lists.
bool isAngle(const Group& group) { return group.code() >= 50 && group.code() <= 58 && group.kind() == GroupKind::real; }

Group inRadians(const Group& group) {
  return isAngle(group) ? Group::real(group.code(), group.real() * std::numbers::pi / 180) : group;
}

// Rounds, so that degrees converted to radians and back are unchanged.
Group inDegrees(const Group& group) {
  if (!isAngle(group)) return group;
  constexpr double kDigits = 1e10, kSame = 1e-12;
  const double degrees = group.real() * 180 / std::numbers::pi, rounded = std::round(degrees * kDigits) / kDigits;
  return Group::real(group.code(),
                     std::abs(degrees - rounded) <= kSame * std::max(1.0, std::abs(degrees)) ? rounded : degrees);
}

std::string textOf(const std::vector<Group>& groups, int code) {
  for (const Group& group : groups)
    if (group.code() == code) return group.text();
  return {};
}

bool named(std::span<const std::string> applications, const std::string& application) {
  return std::any_of(applications.begin(), applications.end(),
                     [&](const std::string& a) { return a == "*" || equalNoCase(a, application); });
}

// Whether the drawing has all the names that the list refers to.
bool referencesExist(AcDbImpDatabase& db, const std::vector<Group>& groups) {
  for (const Group& group : groups) {
    if (group.code() == 1001 && !db.tableRecord("APPID", group.text())) return false;
    if (group.code() == 7 && group.kind() == GroupKind::text && !group.text().empty() &&
        !db.tableRecord("STYLE", group.text()))
      return false;
    if (group.code() == 6 && !equalNoCase(group.text(), "BYLAYER") && !equalNoCase(group.text(), "BYBLOCK") &&
        !db.tableRecord("LTYPE", group.text()))
      return false;
  }
  return true;
}

// A layer that is missing is made, as the reference does.
void ensureLayer(AcDbImpDatabase& db, const std::string& name) {
  if (name.empty() || db.tableRecord("LAYER", name)) return;
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbLayerTable> table(idOf(db.table("LAYER")), AcDb::kForWrite);
  auto* layer = new AcDbLayerTableRecord;
  layer->setName(toWide(name).c_str());
  if (table.openStatus() == Acad::eOk && table->add(id, layer) == Acad::eOk) layer->close();
  else delete layer;
}

// Code of a group that belongs to the object's identity, not to what a list may set.
bool isIdentity(const Group& group) { return group.code() == 5 || group.code() == 105 || group.code() == -1; }

bool hasMarks(const std::vector<Group>& groups) {
  return std::any_of(groups.begin(), groups.end(), [](const Group& g) { return g.code() == 100; });
}

// A list without subclass marks: each group goes into the section in which the format has it.
Record arranged(const std::vector<Group>& given) {
  const std::string type = textOf(given, 0);
  const RecordFormat* format = formatOf(type);
  Record record = Record::fresh(type);
  if (!format) {
    record.groups = given;
    return record;
  }
  std::vector<Group> loose, xdata;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const Group& group = given[i];
    if (group.code() == 0 || isIdentity(group)) continue;
    if (group.code() >= 1000) {
      xdata.push_back(group);
      continue;
    }
    const auto field = std::find_if(format->fields.begin(), format->fields.end(),
                                    [&](const Field& f) { return f.code == group.code(); });
    const bool repeated =
        field != format->fields.end() &&
        std::count_if(given.begin(), given.end(), [&](const Group& g) { return g.code() == group.code(); }) > 1;
    if (field == format->fields.end() || repeated) {
      loose.push_back(group);
      continue;
    }
    switch (field->kind) {
      case FieldKind::text: record.setText(*field, group.text()); break;
      case FieldKind::real: record.setReal(*field, group.real()); break;
      case FieldKind::integer: record.setInteger(*field, group.integer()); break;
      case FieldKind::handle: record.setHandle(*field, group.handle()); break;
      default: {
        AcGePoint3d p(group.real(), 0, 0);
        if (i + 1 < given.size() && given[i + 1].code() == group.code() + 10) p.y = given[++i].real();
        if (i + 1 < given.size() && given[i + 1].code() == group.code() + 20) p.z = given[++i].real();
        record.setPoint(*field, p);
      }
    }
  }
  record.groups.insert(record.groups.end(), loose.begin(), loose.end());
  record.groups.insert(record.groups.end(), xdata.begin(), xdata.end());
  return record;
}

// A list with marks keeps its order; missing required groups are added in their places.
Record completed(std::vector<Group> given) {
  std::transform(given.begin(), given.end(), given.begin(), inDegrees);
  if (!hasMarks(given)) return arranged(given);
  std::erase_if(given, isIdentity);
  Record record(std::move(given));
  const RecordFormat* format = formatOf(record.type());
  if (!format) return record;
  // Polylines and vertices come in two and three dimensions, with sections of their own: only those given are completed.
  const bool givenOnly = record.type() == "POLYLINE" || record.type() == "VERTEX";
  for (const Field& field : format->fields) {
    if (field.presence != Presence::always || record.has(field)) continue;
    if (givenOnly && record.section(field.subclass).first == Record::npos) continue;
    switch (field.kind) {
      case FieldKind::text: record.setText(field, field.text); break;
      case FieldKind::real: record.setReal(field, field.number); break;
      case FieldKind::integer: record.setInteger(field, static_cast<std::int64_t>(field.number)); break;
      case FieldKind::handle: break;
      default: record.setPoint(field, AcGePoint3d(field.text == "x" ? 1 : 0, 0, field.text == "z" ? 1 : 0)); break;
    }
  }
  return record;
}

// An extension dictionary named in the list becomes the object's own.
void takeExtension(AcDbStub& stub, const Record& record) {
  const auto bounds = record.braces(kExtension);
  if (!bounds || bounds->first == bounds->second) return;
  AcDbStub* dictionary = stub.database->stubOf(record.groups[bounds->first].handle());
  if (!dictionary || dictionary->owner == &stub) return;
  dictionary->owner = &stub;
  dictionary->set(AcDbStub::kChanged);
  AcDbImpObject::of(&stub.database->object(*dictionary)).record.setOwner(stub.handle);
}

AcDbObject* objectFrom(Record record, bool entity) {
  ParsedRecord parsed(std::move(record));
  return makeObjectForPending(entity);
}

}  // namespace

std::string_view tableForType(std::string_view type) {
  for (const std::string_view name :
       {"LAYER", "STYLE", "LTYPE", "APPID", "DIMSTYLE", "VIEW", "UCS", "VPORT", "BLOCK_RECORD"})
    if (name == type) return name;
  return {};
}

std::vector<Group> groupsOf(AcDbStub& stub, std::span<const std::string> applications) {
  stub.set(AcDbStub::kHandleAsked);
  const Record& record = AcDbImpObject::of(&stub.database->object(stub)).settled();
  const std::size_t start = record.xdataStart();
  std::vector<Group> groups;
  groups.reserve(record.groups.size());
  std::transform(record.groups.begin(), record.groups.begin() + static_cast<std::ptrdiff_t>(start),
                 std::back_inserter(groups), inRadians);
  bool wanted = false;
  for (std::size_t i = start; i < record.groups.size(); ++i) {
    if (record.groups[i].code() == 1001) wanted = named(applications, record.groups[i].text());
    if (wanted) groups.push_back(record.groups[i]);
  }
  return groups;
}

bool changeObject(AcDbStub& stub, std::vector<Group> groups) {
  AcDbImpDatabase& db = *stub.database;
  AcDbObject* opened = nullptr;
  if (!referencesExist(db, groups) || acdbOpenObject(opened, idOf(&stub), AcDb::kForWrite) != Acad::eOk) return false;
  AcDbImpObject& imp = AcDbImpObject::of(opened);
  const std::string type = textOf(groups, 0);
  if (!type.empty() && type != imp.record.type()) {
    opened->close();
    return false;
  }
  const Record before = imp.settled();
  std::vector<std::string> replaced;
  for (const Group& group : groups)
    if (group.code() == 1001) replaced.push_back(group.text());
  std::erase_if(groups, [](const Group& g) { return g.code() < 0; });
  if (type.empty()) groups.insert(groups.begin(), Group::text(0, std::string(before.type())));
  Record after = completed(std::move(groups));
  // A lone application name removes its data.
  for (std::size_t i = after.xdataStart(); i < after.groups.size();) {
    const bool lone =
        after.groups[i].code() == 1001 && (i + 1 == after.groups.size() || after.groups[i + 1].code() == 1001);
    if (lone) after.groups.erase(after.groups.begin() + static_cast<std::ptrdiff_t>(i));
    else ++i;
  }
  bool kept = false;
  for (std::size_t i = before.xdataStart(); i < before.groups.size(); ++i) {
    if (before.groups[i].code() == 1001) kept = !named(replaced, before.groups[i].text());
    if (kept) after.groups.push_back(before.groups[i]);
  }
  for (const std::string_view braces : {kExtension, kReactors})
    if (before.braces(braces) && !after.braces(braces)) copyBraces(before, after, braces);
  after.setObjectHandle(stub.handle);
  if (stub.owner) after.setOwner(stub.owner->handle);
  if (stub.is(AcDbStub::kEntity)) ensureLayer(db, after.text(kLayer));
  Record* record = imp.writable();
  imp.forgetDecoded();
  *record = std::move(after);
  takeExtension(stub, *record);
  opened->close();
  if (!tableForType(type).empty()) db.forgetTableIndex();
  return true;
}

AcDbStub* EntityMaker::target() {
  if (block_) return block_;
  return static_cast<AcDbStub*>(db_.database().currentSpaceId());
}

EntityMaker::Result EntityMaker::make(std::vector<Group> groups) {
  const std::string type = upperCase(textOf(groups, 0));
  if (type.empty() || !referencesExist(db_, groups)) return {};
  for (Group& group : groups)
    if (group.code() == 0) group = Group::text(0, type);
  if (!block_ && !parent_ && !tableForType(type).empty()) return makeRecord(tableForType(type), std::move(groups));
  return makeEntity(std::move(groups));
}

EntityMaker::Result EntityMaker::makeRecord(std::string_view table, std::vector<Group> groups) {
  AcDbStub* head = db_.table(table);
  const std::string name = textOf(groups, 2);
  if (!head || name.empty() || db_.tableRecord(table, name)) return {};
  AcDbObject* made = objectFrom(completed(std::move(groups)), false);
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
      given = arranged(given.groups);
    }
    if (AcDb3dPolyline::cast(&db_.object(*parent_)))
      putInSpace(given, "AcDb2dVertex", "AcDb3dPolylineVertex", VertexFlags::kSpace);
  }
  ensureLayer(db_, given.text(kLayer));
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
  Record given = completed(std::move(groups));
  const std::string type(given.type());
  if (type == "BLOCK") return block_ || parent_ ? Result{} : openBlock(given);
  if (parent_) return type == "SEQEND" || type == "VERTEX" || type == "ATTRIB" ? follow(std::move(given)) : Result{};
  if (type == "ENDBLK") {
    AcDbStub* block = block_;
    block_ = nullptr;
    return {block != nullptr, block};
  }
  if (type == "SEQEND" || type == "VERTEX" || type == "ATTRIB" ||
      (!formatOf(type) && given.section("AcDbEntity").first == Record::npos))
    return {};
  if (type == "INSERT" && !db_.tableRecord("BLOCK_RECORD", given.text(textField("AcDbBlockReference", 2)))) return {};
  if (type == "ATTDEF" && !block_ && given.text(textField("AcDbAttributeDefinition", 2)).empty()) return {};
  ensureLayer(db_, given.text(kLayer));
  const bool followed =
      type == "POLYLINE" || (type == "INSERT" && given.integer(integerField("AcDbBlockReference", 66)) == 1);
  AcDbStub* block = target();
  AcDbObject* made = objectFrom(std::move(given), true);
  AcDbStub& stub = db_.adopt(*made, *block);
  made->close();
  block->children->push_back(&stub);
  if (followed) parent_ = &stub;
  return {true, followed ? nullptr : &stub};
}

AcDbStub* makeLooseObject(AcDbImpDatabase& db, std::vector<Group> groups) {
  if (textOf(groups, 0).empty() || !referencesExist(db, groups)) return nullptr;
  AcDbObject* made = objectFrom(completed(std::move(groups)), false);
  AcDbStub& stub = db.adopt(*made, *db.rootDictionary);
  made->close();
  db.objects.push_back(&stub);
  return &stub;
}

}  // namespace atelier
