// The names of layouts stand in objects of type LAYOUT that block records point to; R12 has none.
#include "atelier/database/objects/layouts.h"

#include <algorithm>

namespace atelier {

AcDbStub* layoutOf(AcDbStub& space) {
  AcDbImpDatabase& db = *space.database;
  const Record& block = AcDbImpObject::of(&db.object(space)).record;
  AcDbStub* const layout = db.stubOf(block.handle(handleField("AcDbBlockTableRecord", 340)));
  return layout && !layout->is(AcDbStub::kErased) ? layout : nullptr;
}

std::string layoutNameOf(AcDbStub& block) {
  AcDbImpDatabase& db = *block.database;
  if (&block == db.modelSpace()) return "Model";
  if (db.typeName(block) != "BLOCK_RECORD") return {};
  if (AcDbStub* const layout = layoutOf(block))
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
    AcDbStub* const layout = layoutOf(*block);
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
