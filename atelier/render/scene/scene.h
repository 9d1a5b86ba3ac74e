// A drawing as a display list, seen from above: colours, line weights and line types are resolved, block references
// replaced by their contents. The first step from a database to a plot or a screen.
#pragma once

#include <functional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "atelier/render/shapes/primitives.h"
#include "hote/dbmain.h"

class AcDbStub;

namespace atelier::render {

// Gets each primitive as it is made, in drawing order.
using Receiver = std::function<void(Primitive&&)>;

struct SceneOptions {
  bool paper = true;  // what is not to be plotted (group 290 of layers, Defpoints) is left out
  std::size_t mostPrimitives =
      2'000'000;              // of a list: then it ends with a warning; visits of entities: ten times as many
  int deepest = 40;           // blocks within blocks
  bool hidden = false;        // what is hidden is shown, too
  AcDbStub* space = nullptr;  // the block record that is drawn; null: the model space
  std::set<std::string, std::less<>> frozen = {};  // layers that are frozen here only, in capitals
  std::shared_ptr<const Clip> clip = {};           // an area outside which nothing is seen
  double patternScale = 1;                         // of line types, for a view of another scale
  std::function<void()> step = {};                 // called for each entity; may throw to stop
};

// The options of a plot: the user may interrupt it.
SceneOptions forPlot();

// The space, in drawing order. Faulty entities never make it fail: what can't be shown is counted in the list's
// warnings (French). Throws PlotError when no font is installed. Objects of the drawing are parsed, not changed.
DisplayList drawScene(const AcDbDatabase& database, const SceneOptions& options = {});

// The same without a list and whole; gives the warnings. Throws PlotError for more than a plot can hold.
std::vector<std::string> walkScene(const AcDbDatabase& database, const SceneOptions& options, const Receiver& receive);

// These entities only, as the model space would show them: what the desktop refreshes or highlights.
DisplayList drawEntities(const AcDbDatabase& database, std::span<AcDbStub* const> entities,
                         const SceneOptions& options = {});

}  // namespace atelier::render
