// A drawing as it is plotted: whole, or an error. A small one is kept as a display list; of a large one only extent and
// warnings are kept, and references are replaced by their contents each time it is painted. So its size is that of
// its file, however much it stands for.
#pragma once

#include "atelier/render/scene/scene.h"

namespace atelier::render {

class WholeScene {
 public:
  // The model space. Throws PlotError for a drawing that stands for more objects than a plot can hold, and when no
  // font is installed. The drawing outlives the scene.
  explicit WholeScene(const AcDbDatabase& database, const SceneOptions& options = forPlot());
  // What was drawn elsewhere.
  explicit WholeScene(DisplayList list);

  const AcDbDatabase* drawing() const { return drawing_; }  // null for a list
  // In drawing order; then what lies above.
  void each(const std::function<void(const Primitive&)>& receive) const;
  // Of all primitives that have an end.
  Box bounds() const;
  bool empty() const { return count_ == 0 && above.items().empty(); }
  // Whether white paper shows anything of it.
  bool showsOnPaper() const;
  const std::vector<std::string>& warnings() const { return list_.warnings; }
  // Of an object that primitives name; empty for what is no object of the drawing.
  std::string layerOf(std::uint64_t source) const;
  // Whether its layers follow one another at most so many times, from the first object to the last; not of a large drawing.
  bool layered(std::size_t most) const;

  DisplayList above;  // painted over the drawing

 private:
  const AcDbDatabase* drawing_ = nullptr;  // null for a list
  bool kept_ = true;                       // all is in the list
  SceneOptions options_;
  DisplayList list_;
  Box bounds_;
  std::size_t count_ = 0;
  bool visible_ = false;
};

}  // namespace atelier::render
