// BLOCK: a block made of what is drawn.
// The objects leave the drawing; a name that is taken is given new contents, and its inserts show them.
#include <set>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

AcDbObjectId newBlock(const Command& c, const std::string& name) {
  const AcDbObjectPointer<AcDbBlockTable> table(c.document.database().blockTableId(), AcDb::kForWrite);
  auto record = std::make_unique<AcDbBlockTableRecord>();
  AcDbObjectId id;
  if (name.starts_with('*') || table.openStatus() != Acad::eOk || record->setName(toWide(name).c_str()) != Acad::eOk ||
      table->add(id, record.get()) != Acad::eOk)
    c.fail("Nom de bloc non valide: \"" + name + "\".");
  record.release()->close();
  return id;
}

// Whether an insert, or what its block holds, shows the block.
bool shows(AcDbImpDatabase& database, AcDbStub* entity, AcDbObjectId block, std::set<AcDbStub*>& seen) {
  const auto* insert = entity->is(AcDbStub::kErased) ? nullptr : AcDbBlockReference::cast(&database.object(*entity));
  AcDbStub* shown = insert ? static_cast<AcDbStub*>(insert->blockTableRecord()) : nullptr;
  if (!shown || !seen.insert(shown).second) return false;
  if (AcDbObjectId(shown) == block) return true;
  if (!shown->children) return false;
  return std::any_of(shown->children->begin(), shown->children->end(),
                     [&](AcDbStub* child) { return shows(database, child, block, seen); });
}

CommandTask blockCommand(Command& c) {
  const auto given = co_await c.line("\nNom du bloc: ");
  const std::string name(trimmed(given.value));
  if (name.empty()) co_return;
  AcDbObjectId id(c.document.imp().tableRecord("BLOCK_RECORD", name));
  if (!id.isNull() && c.document.variables().integer("EXPERT", 0) < 2) {
    const auto redefine = co_await c.keyword("\nCe bloc existe. Le redéfinir? [Oui/Non] <N>: ", "Oui Non _Yes No");
    if (!redefine.is("Yes")) co_return;
  }
  const auto base = co_await c.point("\nPoint de base: ");
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  std::set<AcDbStub*> seen;
  for (AcDbStub* stub : (*chosen)->list())
    if (!id.isNull() && shows(c.document.imp(), stub, id, seen)) c.fail("Un bloc ne peut se contenir lui-même.");
  std::vector<AcDbStub*> before;
  if (id.isNull()) id = newBlock(c, name);
  else if (const AcDbStub* record = id; record->children) before = *record->children;
  for (AcDbStub* old : before) {
    const AcDbObjectPointer<AcDbObject> open(AcDbObjectId(old), AcDb::kForWrite);
    if (open.openStatus() == Acad::eOk) open->erase();
  }
  c.copies(**chosen, AcGeMatrix3d::translation(-base.value.asVector()), id);
  c.change(**chosen, [](AcDbEntity& entity) { entity.erase(); });
  c.document.variables().set("INSNAME", name);
}

constexpr CommandRow kTable[] = {
    {"BLOCK", "-BLOCK B BLOC -BLOC", blockCommand, "Fait un bloc d'objets du dessin, qui le quittent."},
};

}  // namespace

std::span<const CommandRow> blockCommands() { return kTable; }

}  // namespace atelier
