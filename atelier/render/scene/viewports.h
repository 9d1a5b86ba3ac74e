// The windows of a layout through which the model space is seen.
// Reference: DXF reference, "VIEWPORT".
#pragma once

#include <set>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

struct Viewport {
  Box window;      // in the units of the layout
  Affine toPaper;  // from the model space
  double scale = 1;
  std::set<std::string, std::less<>> frozen;  // layers, in capitals
  bool fromAbove = true;                      // another view isn't shown
  std::shared_ptr<const Clip> clip = {};      // of one that isn't a rectangle, in the model space
};

// Those that are on and have an extent, but for the one that is the sheet itself.
std::vector<Viewport> viewportsOf(AcDbImpDatabase& database, const AcDbStub& space);

}  // namespace atelier::render
