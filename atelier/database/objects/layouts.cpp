// The names of layouts stand in objects of type LAYOUT that block records point to; R12 has none.
#include "atelier/database/objects/layouts.h"

#include <algorithm>

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

bool isPaperSpace(AcDbStub& block) {
  return block.database->typeName(block) == "BLOCK_RECORD" &&
         upperCase(block.database->recordName(block)).starts_with("*PAPER_SPACE");
}

std::vector<AcDbStub*> sheetsOf(AcDbImpDatabase& db) {
  std::vector<std::pair<std::int64_t, AcDbStub*>> found;
  for (AcDbStub* block : *db.table("BLOCK_RECORD")->children) {
    if (block->is(AcDbStub::kErased) || block == db.modelSpace() || layoutNameOf(*block).empty()) continue;
    AcDbStub* layout =
        db.stubOf(AcDbImpObject::of(&db.object(*block)).record.handle(handleField("AcDbBlockTableRecord", 340)));
    const Record* settings = layout ? &AcDbImpObject::of(&db.object(*layout)).record : nullptr;
    found.emplace_back(settings ? settings->integer(integerField("AcDbLayout", 71)) : 0, block);
  }
  std::ranges::stable_sort(found, {}, &std::pair<std::int64_t, AcDbStub*>::first);
  std::vector<AcDbStub*> sheets;
  for (const auto& [tab, block] : found) sheets.push_back(block);
  return sheets;
}

AcDbStub* spaceOfLayout(AcDbImpDatabase& db, std::string_view name) {
  for (AcDbStub* block : *db.table("BLOCK_RECORD")->children)
    if (!block->is(AcDbStub::kErased) && equalNoCase(layoutNameOf(*block), name)) return block;
  return nullptr;
}

}  // namespace atelier
