// A drawing in short, as aligned text.
// Profiles are described by the front-end's plv-decrire, which knows their records.
#include "atelier/console/listing.h"

#include <map>

#include "atelier/base/interruption.h"
#include "atelier/document/document.h"
#include "atelier/render/scene/undrawn.h"

namespace atelier::console {
namespace {

std::string row(const std::string& name, std::size_t count) {
  constexpr std::size_t kColumns = 32;  // name and count, the count right-aligned
  const std::string number = std::to_string(count);
  const std::size_t used = toWide(name).size() + number.size();
  return "  " + name + std::string(used < kColumns ? kColumns - used : 1, ' ') + number + "\n";
}

std::string section(const std::string& title, const std::map<std::string, std::size_t>& counts) {
  std::string text = title + "\n";
  for (const auto& [name, count] : counts) text += row(name, count);
  return text;
}

}  // namespace

std::string listing(Document& document) {
  AcDbImpDatabase& db = document.imp();
  std::map<std::string, std::size_t> types, layers;
  for (AcDbStub* layer : *db.table("LAYER")->children)
    if (!layer->is(AcDbStub::kErased)) layers[db.recordName(*layer)] = 0;
  if (AcDbStub* space = db.modelSpace())
    for (AcDbStub* entity : *space->children) {
      checkInterruption();
      if (entity->is(AcDbStub::kErased)) continue;
      ++types[std::string(db.typeName(*entity))];
      ++layers[AcDbImpObject::of(&db.object(*entity)).record.text(textField("AcDbEntity", 8, "0"))];
    }
  const auto undrawn = render::undrawn(document.database());
  return section("Entités de l'espace objet", types) + section("Calques (entités)", layers) +
         (undrawn.empty() ? "" : section("Objets non représentés, ou en partie", undrawn));
}

}  // namespace atelier::console
