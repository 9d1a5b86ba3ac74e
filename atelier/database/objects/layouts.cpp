// The names of layouts stand in objects of type LAYOUT that block records point to; R12 has none.
#include "atelier/database/objects/layouts.h"

namespace atelier {

std::string layoutNameOf(AcDbStub& block) {
  AcDbImpDatabase& db = *block.database;
  if (&block == db.modelSpace()) return "Model";
  if (db.typeName(block) != "BLOCK_RECORD") return {};
  AcDbStub* layout =
      db.stubOf(AcDbImpObject::of(&db.object(block)).record.handle(handleField("AcDbBlockTableRecord", 340)));
  if (layout && !layout->is(AcDbStub::kErased))
    return AcDbImpObject::of(&db.object(*layout)).record.text(textField("AcDbLayout", 1));
  return &block == db.paperSpace() ? "Layout1" : std::string();
}

AcDbStub* spaceOfLayout(AcDbImpDatabase& db, std::string_view name) {
  for (AcDbStub* block : *db.table("BLOCK_RECORD")->children)
    if (!block->is(AcDbStub::kErased) && equalNoCase(layoutNameOf(*block), name)) return block;
  return nullptr;
}

}  // namespace atelier
