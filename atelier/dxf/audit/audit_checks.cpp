// The audit's checks of single objects: owners, pointers, names, values, extended data.
// Reference: DXF reference, "Group codes in numerical order" and "Extended data".
#include <algorithm>
#include <cmath>

#include "atelier/database/objects/ownership.h"
#include "atelier/dxf/audit/audit_run.h"
#include "atelier/dxf/writing/references.h"
#include "hote/dbsymtb.h"

namespace atelier::dxf {
namespace {

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

AcDbSymbolTableRecord* newRecord(std::string_view table) {
  if (table == "LAYER") return new AcDbLayerTableRecord;
  if (table == "STYLE") return new AcDbTextStyleTableRecord;
  if (table == "LTYPE") return new AcDbLinetypeTableRecord;
  return new AcDbRegAppTableRecord;
}

// A record with the defaults of its table stands for one that was lost: it draws as a missing one does.
void addRecord(AuditRun& run, std::string_view table, const std::string& name) {
  AcDbStub* head = run.db.table(table);
  AcDbSymbolTableRecord* record = newRecord(table);
  record->setName(toWide(name).c_str());
  const AcDbObjectPointer<AcDbSymbolTable> opened(idOf(head), AcDb::kForWrite);
  if (opened.openStatus() == Acad::eOk && opened->add(record) == Acad::eOk) record->close();
  else delete record;
}

void needName(AuditRun& run, AcDbStub& stub, std::string_view table, const std::string& name, const char* what) {
  if (name.empty() || run.db.tableRecord(table, name)) return;
  if (run.found(table == "APPID" ? "A10" : "A05", &stub, std::string(what) + " " + quoted(name) + " absent"))
    addRecord(run, table, name);
}

// Groups of a list that leads to objects which are not there can go without loss.
bool inRemovableList(const Record& record, std::size_t at, bool braces) {
  const int code = record.groups[at].code();
  if (braces) return code == 330 || code == 360;
  if (record.type() == "DICTIONARY") return (code == 350 || code == 360) && at > 0 && record.groups[at - 1].code() == 3;
  return record.type() == "GROUP" && code == 340;
}

bool inBracesAt(const Record& record, std::size_t at) {
  bool inside = false;
  for (std::size_t i = 0; i < std::min(at, record.groups.size()); ++i)
    if (record.groups[i].code() == 102) inside = record.groups[i].text().starts_with('{');
  return inside;
}

// Takes the group out, with its key or with braces that hold nothing else. Gives the place of the group after it.
std::size_t removeAt(Record& record, std::size_t at) {
  const auto code = [&](std::size_t i) { return i < record.groups.size() ? record.groups[i].code() : -1; };
  const bool key = record.type() == "DICTIONARY" && code(at - 1) == 3,
             alone = code(at - 1) == 102 && code(at + 1) == 102;
  const auto place = record.groups.begin() + static_cast<std::ptrdiff_t>(at);
  record.groups.erase(key || alone ? place - 1 : place, alone ? place + 2 : place + 1);
  return key || alone ? at - 1 : at;
}

bool allowedInExtendedData(int code) {
  return (code >= 1000 && code <= 1005) || (code >= 1010 && code <= 1013) || (code >= 1020 && code <= 1023) ||
         (code >= 1030 && code <= 1033) || (code >= 1040 && code <= 1042) || code == 1070 || code == 1071;
}

// Numbers that could not be read stay text; one too great for a double is infinite.
bool readable(const Group& group) {
  const GroupKind wanted = kindOfCode(group.code());
  const bool number = wanted == GroupKind::real || wanted == GroupKind::integer;
  return !(group.kind() == GroupKind::text && number) &&
         !(group.kind() == GroupKind::real && !std::isfinite(group.real()));
}

// What lacks its style is drawn with the settings of a new one; Standard has these in most drawings.
void checkDimensionStyle(AuditRun& run, AcDbStub& stub) {
  constexpr std::pair<std::string_view, std::string_view> kSections[] = {
      {"DIMENSION", "AcDbDimension"}, {"LEADER", "AcDbLeader"}, {"TOLERANCE", "AcDbFcf"}};
  for (const auto& [type, section] : kSections) {
    if (run.recordOf(stub).type() != type) continue;
    const Field field = textField(section, 3);
    const std::string style = run.recordOf(stub).text(field);
    if (style.empty() || run.db.tableRecord("DIMSTYLE", style)) continue;
    const bool repairable = run.db.tableRecord("DIMSTYLE", "Standard") != nullptr;
    if (run.found("A05", &stub, "style de cote " + quoted(style) + " absent", repairable))
      run.changing(stub).setText(field, "Standard");
  }
}

}  // namespace

void checkOwner(AuditRun& run, AcDbStub& stub) {
  if (!stub.owner || stub.owner->is(AcDbStub::kVirtual)) return;
  const std::uint64_t owner = run.recordOf(stub).owner(), wanted = stub.owner->handle;
  const std::string_view type = run.db.typeName(stub);
  // R12 knows no owners; attributes and vertices may name the block instead of their entity.
  const bool blockOfParent = stub.owner->owner && stub.owner->owner->handle == owner && stub.is(AcDbStub::kEntity);
  if (owner == 0 || owner == wanted || blockOfParent || type == "ENDTAB") return;
  if (run.found("A07", &stub, "propriétaire " + handleText(owner) + " au lieu de " + handleText(wanted)))
    run.changing(stub).setOwner(wanted);
}

void checkPointers(AuditRun& run, AcDbStub& stub) {
  const auto dangling = [&](const Group& group) {
    return isReference(group.code()) && group.handle() != 0 && group.kind() == GroupKind::handle &&
           !run.db.stubOf(group.handle());
  };
  const std::uint64_t owner = run.recordOf(stub).owner();
  bool braces = false;
  for (std::size_t i = 1; i < run.recordOf(stub).groups.size();) {
    const Record& record = run.recordOf(stub);
    const Group& group = record.groups[i++];
    if (group.code() == 102) braces = group.text().starts_with('{');
    // An owner that is not there was dealt with by the structure.
    if (!dangling(group) || (group.code() == 330 && group.handle() == owner && !braces)) continue;
    const std::string text =
        "groupe " + std::to_string(group.code()) + ": l'objet " + handleText(group.handle()) + " n'existe pas";
    if (!inRemovableList(record, i - 1, braces)) {
      run.found("A09", &stub, text);
    } else if (run.found("A08", &stub, text)) {
      i = removeAt(run.changing(stub), i - 1);
      braces = inBracesAt(run.recordOf(stub), i);
    }
  }
}

void checkNames(AuditRun& run, AcDbStub& stub) {
  const Record& record = run.recordOf(stub);
  const std::string_view type = record.type();
  const bool layer = type == "LAYER";
  if (!stub.is(AcDbStub::kEntity) && !layer) return;
  const std::string linetype = record.text(textField(layer ? "AcDbLayerTableRecord" : "AcDbEntity", 6));
  if (!equalNoCase(linetype, "BYLAYER") && !equalNoCase(linetype, "BYBLOCK"))
    needName(run, stub, "LTYPE", linetype, "type de ligne");
  if (layer) return;
  needName(run, stub, "LAYER", record.text(textField("AcDbEntity", 8)), "calque");
  for (const std::string_view section : {"AcDbText", "AcDbMText"}) {
    const Group* style = record.get(textField(section, 7));
    if (style && formatOf(type)) needName(run, stub, "STYLE", style->text(), "style de texte");
  }
  checkDimensionStyle(run, stub);
  const std::string block = type == "INSERT" ? record.text(textField("AcDbBlockReference", 2)) : std::string();
  if (!block.empty() && !run.db.tableRecord("BLOCK_RECORD", block))
    run.found("A06", &stub, "bloc " + quoted(block) + " absent");
}

void checkValues(AuditRun& run, AcDbStub& stub) {
  const Record& record = run.recordOf(stub);
  for (const Group& group : record.groups) {
    if (!readable(group))
      run.found("A13", &stub,
                "groupe " + std::to_string(group.code()) + ": " +
                    quoted(group.kind() == GroupKind::text ? group.text() : realText(group.real())));
  }
  const RecordFormat* format = formatOf(record.type());
  if (!format) return;
  for (const Field& field : format->fields) {
    const Group* group = record.get(field);
    if (!group || !readable(*group) || fits(field, *group)) continue;
    const std::string wanted = expected(field);
    const bool whole = group->kind() == GroupKind::integer;
    if (!wanted.empty())
      run.found("A14", &stub,
                std::string(field.name) + " (groupe " + std::to_string(field.code) + "): " +
                    (whole ? std::to_string(group->integer()) : realText(group->real())) + ", attendu " + wanted);
  }
}

void checkExtendedData(AuditRun& run, AcDbStub& stub) {
  const std::size_t begin = run.recordOf(stub).xdataStart();
  int depth = 0;
  const auto close = [&](std::size_t at) {
    if (depth > 0 && run.found("A11", &stub, std::to_string(depth) + " accolade(s) sans fin")) {
      auto& groups = run.changing(stub).groups;
      groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(at), static_cast<std::size_t>(depth),
                    Group::text(1002, "}"));
      at += static_cast<std::size_t>(depth);
    }
    depth = 0;
    return at;
  };
  for (std::size_t i = begin; i < run.recordOf(stub).groups.size(); ++i) {
    const Group group = run.recordOf(stub).groups[i];
    const int code = group.code();
    if (i == begin && code != 1001)
      run.found("A12", &stub, "les données étendues ne commencent pas par une application");
    if (code == 1001) {
      i = close(i);
      needName(run, stub, "APPID", group.text(), "application");
    } else if (!allowedInExtendedData(code)) {
      run.found("A12", &stub, "code " + std::to_string(code));
    } else if (code == 1002) {
      depth += group.text() == "{" ? 1 : -1;
      if (depth < 0) depth = 0, run.found("A12", &stub, "accolade fermante sans début");
    }
  }
  close(run.recordOf(stub).groups.size());
}

}  // namespace atelier::dxf
