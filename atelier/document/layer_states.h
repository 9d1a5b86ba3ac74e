// Which layers are shown; each layer is looked up once. Selections and picks leave out entities that are off or frozen.
// Reference: DXF reference, LAYER groups 62 and 70.
#pragma once
#include <string>
#include <unordered_map>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

class LayerStates {
 public:
  explicit LayerStates(AcDbImpDatabase& database) : database_(database) {}
  bool shows(AcDbStub& entity);  // neither off nor frozen
  bool isLocked(AcDbStub& entity);
  bool isFrozen(AcDbStub& entity);

 private:
  struct State {
    bool off = false, frozen = false, locked = false;
  };
  const State& of(AcDbStub& entity);
  AcDbImpDatabase& database_;
  std::unordered_map<std::string, State> states_;
};

}  // namespace atelier
