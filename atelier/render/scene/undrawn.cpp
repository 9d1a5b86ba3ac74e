// Entities that are shown by parts are asked for them: their data may be unreadable.
#include "atelier/render/scene/undrawn.h"

#include "atelier/base/interruption.h"
#include "atelier/database/pictures/pictures.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {

std::map<std::string, std::size_t> undrawn(const AcDbDatabase& database) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  std::map<std::string, std::size_t> counts;
  const AcDbStub* blocks = imp.table("BLOCK_RECORD");
  if (!blocks || !blocks->children) return counts;
  for (const AcDbStub* block : *blocks->children) {
    if (block->is(AcDbStub::kErased) || !block->children) continue;
    for (AcDbStub* stub : *block->children) {
      checkInterruption();
      if (stub->is(AcDbStub::kErased)) continue;
      const std::string type(imp.typeName(*stub));
      if (!isDrawn(type)) ++counts[type];
      if (!hasParts(type)) continue;
      const AcDbEntityPointer held(idOf(stub));
      const std::string missing = eachPart(imp, AcDbImpObject::of(&imp.object(*stub)).settled(), [](const Record&) {});
      if (!missing.empty()) ++counts[type + " (" + missing + ")"];
    }
  }
  return counts;
}

}  // namespace atelier::render
