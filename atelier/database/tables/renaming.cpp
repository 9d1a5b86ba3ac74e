// Finds the records that refer to a table record by its name: a matter of record type and group code.
#include "atelier/database/tables/renaming.h"

#include <algorithm>

#include "atelier/database/tables/symbol_names.h"

namespace atelier {
namespace {

constexpr struct {
  std::string_view table;
  const char* variable;
  int code;
} kCurrent[] = {{"LAYER", "$CLAYER", 8},
                {"STYLE", "$TEXTSTYLE", 7},
                {"LTYPE", "$CELTYPE", 6},
                {"DIMSTYLE", "$DIMSTYLE", 2},
                {"STYLE", "$DIMTXSTY", 7}};

bool isOneOf(std::string_view type, std::initializer_list<std::string_view> types) {
  return std::ranges::find(types, type) != types.end();
}

}  // namespace

bool namesRecord(std::string_view table, std::string_view type, bool entity, int code) {
  constexpr int kLayerOfXdata = 1003;
  const bool dimension = isOneOf(type, {"DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"});
  if (table == "LAYER")
    return (code == 8 && (entity || isOneOf(type, {"BLOCK", "ENDBLK", "LAYER_FILTER"}))) || code == kLayerOfXdata;
  if (table == "LTYPE") return code == 6 && (entity || type == "LAYER");
  if (table == "STYLE") return code == 7 && isOneOf(type, {"TEXT", "MTEXT", "ATTRIB", "ATTDEF", "ACAD_TABLE"});
  if (table == "DIMSTYLE") return code == 3 && (dimension || isOneOf(type, {"LEADER", "TOLERANCE"}));
  if (table == "BLOCK_RECORD")
    return (code == 2 && (dimension || isOneOf(type, {"INSERT", "BLOCK", "ACAD_TABLE"}))) ||
           (code == 3 && type == "BLOCK");
  return table == "APPID" && code == 1001;
}

void redirectNames(AcDbImpDatabase& db, std::string_view table, const std::string& from, const std::string& to) {
  for (const AcDbStub& known : db.stubs()) {
    AcDbStub& stub = const_cast<AcDbStub&>(known);
    const std::string type(db.typeName(stub));
    const auto refers = [&](const Group& g) {
      return namesRecord(table, type, stub.is(AcDbStub::kEntity), g.code()) && equalNoCase(g.text(), from);
    };
    const std::vector<Group>& seen = AcDbImpObject::of(&db.object(stub)).settled().groups;
    if (std::none_of(seen.begin(), seen.end(), refers)) continue;
    const AcDbObjectPointer<AcDbObject> object(AcDbObjectId(&stub), AcDb::kForWrite, true);
    if (object.openStatus() != Acad::eOk) continue;
    for (Group& group : AcDbImpObject::of(object.object()).writable()->groups)
      if (refers(group)) group = Group::text(group.code(), to);
  }
}

bool isCurrent(const AcDbImpDatabase& db, std::string_view table, std::string_view name) {
  return std::ranges::any_of(kCurrent, [&](const auto& row) {
    return row.table == table && equalNoCase(db.header.text(row.variable, ""), name);
  });
}

bool keepsName(std::string_view table, const std::string& name) {
  const std::string upper = upperCase(name);
  const bool fixed = isOneOf(upper, {"0", "STANDARD", "CONTINUOUS", "BYLAYER", "BYBLOCK", "ACAD"});
  return upper.starts_with('*') || (fixed && !(table == "LAYER" && upper != "0") && table != "BLOCK_RECORD");
}

Renaming renameRecord(AcDbStub& record, const std::string& to) {
  AcDbImpDatabase& db = *record.database;
  const std::string table(db.typeName(record)), from = db.recordName(record);
  if (keepsName(table, from)) return Renaming::kept;
  AcDbStub* taken = db.tableRecord(table, to);
  if (!isSymbolName(to) || (taken && taken != &record)) return Renaming::invalid;
  {
    const AcDbObjectPointer<AcDbObject> object(AcDbObjectId(&record), AcDb::kForWrite);
    if (object.openStatus() != Acad::eOk) return Renaming::notOpen;
    auto& groups = AcDbImpObject::of(object.object()).writable()->groups;
    const auto name = std::ranges::find(groups, 2, &Group::code);
    if (name != groups.end()) *name = Group::text(2, to);
  }
  db.forgetTableIndex();
  redirectNames(db, table, from, to);
  for (const auto& row : kCurrent)
    if (row.table == table && equalNoCase(db.header.text(row.variable, ""), from))
      db.header.set(row.variable, Group::text(row.code, to));
  return Renaming::done;
}

}  // namespace atelier
