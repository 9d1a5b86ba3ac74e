// Checks of whole records: owners of objects, names in tables, blocks of dimensions.
// Reference: DXF reference, "Symbol table group codes", "DIMENSION", and the ownership pointers of group 330.
#include <algorithm>

#include "atelier/database/dimensions/dimension_block.h"
#include "atelier/database/dimensions/dimension_parts.h"
#include "atelier/database/objects/ownership.h"
#include "atelier/database/tables/renaming.h"
#include "atelier/database/tables/symbol_names.h"
#include "atelier/dxf/audit/audit_run.h"
#include "hote/dbents.h"

namespace atelier::dxf {
namespace {

// Whether a table may hold a record of that name; an xref's records have its name and a bar before theirs.
bool allowed(const std::string& table, std::string name) {
  if (name.starts_with('*') || table == "VPORT" || (table == "STYLE" && name.empty())) return true;
  std::ranges::replace(name, '|', '_');
  return isSymbolName(name);
}

// An allowed name that no record of the table has.
std::string allowedName(AcDbImpDatabase& db, const std::string& table, std::string name) {
  constexpr std::size_t kMost = 60;
  for (char& c : name)
    if (!isSymbolName(std::string(1, c)) && static_cast<unsigned char>(c) < 0x80) c = '_';
  if (name.empty() || toWide(name).size() > kMost) name = "NOM";
  std::string free = name;
  for (int i = 1; db.tableRecord(table, free); ++i) free = name + "_" + std::to_string(i);
  return free;
}

bool isDimension(std::string_view type) { return type.ends_with("DIMENSION"); }

}  // namespace

AcDbStub* AuditRun::keeperOf(const AcDbStub& object) {
  if (!keepersKnown_) {
    keepersKnown_ = true;
    for (const AcDbStub& stub : db.stubs())
      if (!stub.is(AcDbStub::kErased))
        for (const std::uint64_t handle : ownedHandles(recordOf(const_cast<AcDbStub&>(stub))))
          keepers_.try_emplace(handle, const_cast<AcDbStub*>(&stub));
  }
  const auto keeper = keepers_.find(object.handle);
  return keeper == keepers_.end() || keeper->second == &object ? nullptr : keeper->second;
}

void checkKeeper(AuditRun& run, AcDbStub& stub) {
  if (stub.owner || stub.is(AcDbStub::kEntity) || &stub == run.db.rootDictionary) return;
  const std::string_view type = run.db.typeName(stub);
  const std::uint64_t owner = run.recordOf(stub).owner();
  if (owner == 0 || type == "TABLE" || type == "ENDTAB") return;
  AcDbStub* const keeper = run.keeperOf(stub);
  if (run.found("A15", &stub, "propriétaire " + handleText(owner) + " absent", keeper != nullptr)) {
    run.changing(stub).setOwner(keeper->handle);
    stub.owner = keeper;
  }
}

void checkSymbolName(AuditRun& run, AcDbStub& stub) {
  if (!stub.owner || run.db.typeName(*stub.owner) != "TABLE") return;
  const std::string table(run.db.typeName(stub));
  if (table == "ENDTAB" || table == "VPORT") return;
  const std::string name = run.db.recordName(stub);
  if (!allowed(table, name)) {
    const std::string better = allowedName(run.db, table, name);
    if (run.found("A16", &stub, "nom interdit \"" + name + "\"", !keepsName(table, name))) renameRecord(stub, better);
  } else if (!name.empty() && run.db.tableRecord(table, name) != &stub) {
    run.found("A16", &stub, "nom en double \"" + name + "\"", false);
  }
}

void checkDimension(AuditRun& run, AcDbStub& stub) {
  if (!stub.is(AcDbStub::kEntity) || !isDimension(run.db.typeName(stub))) return;
  const Record& record = run.recordOf(stub);
  const std::string block = record.text(textField("AcDbDimension", 2));
  if (!block.empty() && run.db.tableRecord("BLOCK_RECORD", block)) return;
  // A fragment whose entities name an owner that it doesn't have stays without tables.
  const AcDbStub* blocks = run.db.table("BLOCK_RECORD");
  const bool fragment = !blocks || (blocks->is(AcDbStub::kVirtual) && record.owner() != 0);
  const bool drawable =
      !fragment && AcDbDimension::cast(&run.db.object(stub)) && !dimensionParts(run.db, record).empty();
  if (!run.found("A17", &stub, block.empty() ? "cote sans bloc" : "bloc \"" + block + "\" de la cote absent", drawable))
    return;
  const AcDbObjectPointer<AcDbDimension> dimension(idOf(&stub), AcDb::kForWrite);
  if (dimension.openStatus() == Acad::eOk) drawDimensionBlock(*dimension.object());
}

}  // namespace atelier::dxf
