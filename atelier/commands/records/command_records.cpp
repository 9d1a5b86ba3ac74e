// Renaming with messages, and purging: what nothing names and nothing points to goes.
#include "atelier/commands/records/command_records.h"

#include <algorithm>
#include <set>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/ownership.h"
#include "atelier/database/tables/renaming.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier {
void renameNamed(const Command& c, std::string_view table, const std::string& from, const std::string& to) {
  AcDbStub* record = c.document.imp().tableRecord(table, from);
  if (!record) c.fail("Aucun enregistrement ne porte le nom \"" + from + "\".");
  switch (renameRecord(*record, to)) {
    case Renaming::done: return;
    case Renaming::kept: c.fail("\"" + from + "\" ne peut pas être renommé.");
    case Renaming::invalid: c.fail("Le nom \"" + to + "\" n'est pas valide ou existe déjà.");
    case Renaming::notOpen: c.fail("\"" + from + "\" n'est pas accessible.");
  }
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
  std::vector<std::string> purged;
  for (AcDbStub* stub : *db.table(table)->children) {
    const std::string name = db.recordName(*stub), upper = upperCase(name);
    const bool wanted = !stub->is(AcDbStub::kErased) && !keepsName(table, name) && !isCurrent(db, table, name) &&
                        lisp::matchesWildcard(upper, upperCase(pattern));
    if (!wanted || used.contains(upper) || handles.contains(stub->handle)) continue;
    eraseWithOwned(*stub, true);
    purged.push_back(name);
  }
  if (!purged.empty()) db.forgetTableIndex();
  return purged;
}

}  // namespace atelier
