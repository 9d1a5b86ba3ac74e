// Layer states read from the records of the layer table.
// An entity on a layer without a record is shown.
#include "atelier/document/layer_states.h"

#include "atelier/database/records/flags.h"

namespace atelier {

const LayerStates::State& LayerStates::of(AcDbStub& entity) {
  const std::string name =
      upperCase(AcDbImpObject::of(&database_.object(entity)).record.text(textField("AcDbEntity", 8, "0")));
  const auto [it, added] = states_.try_emplace(name);
  AcDbStub* layer = added ? database_.tableRecord("LAYER", name) : nullptr;
  if (layer) {
    const Record& record = AcDbImpObject::of(&database_.object(*layer)).record;
    const std::int64_t flags = record.integer(integerField("AcDbLayerTableRecord", 70));
    it->second = {record.integer(integerField("AcDbLayerTableRecord", 62, 7)) < 0, (flags & LayerFlags::kFrozen) != 0,
                  (flags & LayerFlags::kLocked) != 0};
  }
  return it->second;
}

bool LayerStates::shows(AcDbStub& entity) {
  const State& state = of(entity);
  return !state.off && !state.frozen;
}
bool LayerStates::isLocked(AcDbStub& entity) { return of(entity).locked; }
bool LayerStates::isFrozen(AcDbStub& entity) { return of(entity).frozen; }

}  // namespace atelier
