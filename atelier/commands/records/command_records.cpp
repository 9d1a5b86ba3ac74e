// Finds the records that refer to a table record by its name: a matter of record type and group code.
// Reference: DXF reference, chapters "TABLES", "BLOCKS" and "ENTITIES".
#include "atelier/commands/records/command_records.h"

#include <algorithm>
#include <set>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/ownership.h"
#include "atelier/database/tables/symbol_names.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier {
namespace {

// Whether that group of a record of that type names something of the table.
bool namesRecord(std::string_view table, std::string_view type, bool entity, int code) {
  if (table == "LAYER") return code == 8 && (entity || type == "BLOCK" || type == "ENDBLK");
  if (table == "LTYPE") return code == 6 && (entity || type == "LAYER");
  if (table == "STYLE") return code == 7 && (type == "TEXT" || type == "MTEXT" || type == "ATTRIB" || type == "ATTDEF");
  if (table == "DIMSTYLE") return code == 3 && (type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE");
  if (table == "BLOCK_RECORD")
    return (code == 2 && (type == "INSERT" || type == "DIMENSION" || type == "BLOCK")) ||
           (code == 3 && type == "BLOCK");
  return table == "APPID" && code == 1001;
}

constexpr struct {
  std::string_view table;
  const char* variable;
  int code;
} kCurrent[] = {{"LAYER", "$CLAYER", 8},
                {"STYLE", "$TEXTSTYLE", 7},
                {"LTYPE", "$CELTYPE", 6},
                {"DIMSTYLE", "$DIMSTYLE", 2},
                {"STYLE", "$DIMTXSTY", 7}};

bool keepsName(std::string_view table, const std::string& name) {
  constexpr std::string_view kFixed[] = {"0", "STANDARD", "CONTINUOUS", "BYLAYER", "BYBLOCK", "ACAD"};
  const std::string upper = upperCase(name);
  const bool fixed = std::find(std::begin(kFixed), std::end(kFixed), upper) != std::end(kFixed);
  return upper.starts_with('*') || (fixed && !(table == "LAYER" && upper != "0") && table != "BLOCK_RECORD");
}

void renameReferences(AcDbImpDatabase& db, std::string_view table, const std::string& from, const std::string& to) {
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

}  // namespace

void renameRecord(const Command& c, std::string_view table, const std::string& from, const std::string& to) {
  AcDbImpDatabase& db = c.document.imp();
  AcDbStub* record = db.tableRecord(table, from);
  if (!record) c.fail("Aucun enregistrement ne porte le nom \"" + from + "\".");
  if (keepsName(table, from)) c.fail("\"" + from + "\" ne peut pas être renommé.");
  AcDbStub* taken = db.tableRecord(table, to);
  if (!isSymbolName(to) || (taken && taken != record)) c.fail("Le nom \"" + to + "\" n'est pas valide ou existe déjà.");
  {
    const AcDbObjectPointer<AcDbObject> object(AcDbObjectId(record), AcDb::kForWrite);
    if (object.openStatus() != Acad::eOk) c.fail("\"" + from + "\" n'est pas accessible.");
    for (Group& group : AcDbImpObject::of(object.object()).writable()->groups)
      if (group.code() == 2) {
        group = Group::text(2, to);
        break;
      }
  }
  db.forgetTableIndex();
  renameReferences(db, table, from, to);
  for (const auto& row : kCurrent)
    if (row.table == table && equalNoCase(db.header.text(row.variable, ""), from))
      db.header.set(row.variable, Group::text(row.code, to));
}

std::vector<std::string> purgeTable(const Command& c, std::string_view table, std::string_view pattern) {
  AcDbImpDatabase& db = c.document.imp();
  std::set<std::string> used;
  std::set<std::uint64_t> handles;
  for (const AcDbStub& known : db.stubs()) {
    AcDbStub& stub = const_cast<AcDbStub&>(known);
    checkInterruption();
    if (stub.is(AcDbStub::kErased)) continue;
    const std::string type(db.typeName(stub));
    // A block's own BLOCK and ENDBLK name it, too, but don't use it.
    const bool ownEnd = table == "BLOCK_RECORD" && type == "BLOCK";
    for (const Group& group : AcDbImpObject::of(&db.object(stub)).settled().groups) {
      if (!ownEnd && namesRecord(table, type, stub.is(AcDbStub::kEntity), group.code()))
        used.insert(upperCase(group.text()));
      // Pointers count as uses, except the owner's handle (330).
      if (group.kind() == GroupKind::handle && group.code() >= 331) handles.insert(group.handle());
    }
  }
  for (const auto& row : kCurrent)
    if (row.table == table) used.insert(upperCase(db.header.text(row.variable, "")));
  std::vector<std::string> purged;
  for (AcDbStub* stub : *db.table(table)->children) {
    const std::string name = db.recordName(*stub), upper = upperCase(name);
    const bool wanted =
        !stub->is(AcDbStub::kErased) && !keepsName(table, name) && lisp::matchesWildcard(upper, upperCase(pattern));
    if (!wanted || used.contains(upper) || handles.contains(stub->handle)) continue;
    eraseWithOwned(*stub, true);
    purged.push_back(name);
  }
  if (!purged.empty()) db.forgetTableIndex();
  return purged;
}

}  // namespace atelier
