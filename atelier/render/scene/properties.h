// Properties that entities get from their layer, their block and the drawing: colour, line weight, line type, text
// style. Inner header of the room; tables of the drawing are read once and kept.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/records/groups.h"
#include "atelier/render/scene/line_marks.h"
#include "atelier/render/scene/scene.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Lengths in drawing units at line type scale 1.
struct Pattern {
  std::vector<double> dashes;  // dash first; empty: continuous
  std::vector<LineMark> marks;
  double period = 0;   // of the marks
  std::string absent;  // the file of shapes that isn't there
};

struct Layer {
  Colour colour = kForeground;
  double weightMm = 0.25;
  const Pattern* pattern = nullptr;
  bool off = false, frozen = false, plotted = true;
};

// The look of an entity, with all inherited properties resolved.
struct Look {
  Colour colour = kForeground;
  double weightMm = 0.25;
  const Pattern* pattern = nullptr;  // null: continuous
  double patternScale = 1;           // drawing and entity factors
  bool hidden = false;               // it is invisible itself, or its layer is off or frozen
  bool frozen = false;               // its contents are hidden, too
};

// Properties that the entities of a block get from the reference: those "by block", and its layer for those on layer 0.
struct Inherited {
  const Layer* layer = nullptr;
  Look look;
};

struct TextStyle {
  fonts::FontStyle font;
  double height = 0;  // 0: each text has its own
};

class Properties {
 public:
  // On paper layers that are not to be plotted are hidden.
  Properties(AcDbImpDatabase& database, const SceneOptions& options);

  const Layer& layer(std::string_view name);
  Look look(const Groups& entity, const Inherited& from);
  // The effective layer of an entity: for layer 0 that of the reference.
  const Layer& layerOf(const Groups& entity, const Inherited& from);
  const TextStyle& textStyle(std::string_view name);
  // Null when the pattern is empty or the scale is not positive.
  Dashes dashes(const Pattern* pattern, double scale);

 private:
  const Pattern* pattern(std::string_view name);
  std::string_view key(std::string_view name);
  const Record* record(std::string_view table, std::string_view name);

  AcDbImpDatabase& database_;
  bool paper_;
  std::set<std::string, std::less<>> frozen_;
  double scale_;  // $LTSCALE
  std::string key_;
  std::map<std::string, Layer, std::less<>> layers_;
  std::map<std::string, Pattern, std::less<>> patterns_;
  std::map<std::string, TextStyle, std::less<>> styles_;
  std::map<std::pair<const Pattern*, double>, Dashes> dashes_;
};

}  // namespace atelier::render
