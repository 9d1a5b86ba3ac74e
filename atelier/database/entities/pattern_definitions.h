// Hatch patterns by name, and a hatch given one.
// Reference: the format of pattern files (*.pat): a name, then "angle, x, y, step x, step y, dashes" for each family of lines.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/entities/hatch_pattern.h"
#include "hote/dbents.h"

namespace atelier {

// The families of a pattern, steps along and across the lines as files have them, in millimetres at scale 1. Nothing for a
// name that isn't among the common ones.
std::optional<std::vector<PatternLine>> commonPattern(std::string_view name);

// The pattern of that name in the text of a pattern file; nothing when it isn't there or isn't whole.
std::optional<std::vector<PatternLine>> patternIn(std::string_view text, std::string_view name);

struct PatternPlacing {
  double scale = 1, angle = 0;  // radians
};

// Gives a new hatch a pattern of lines; their steps are as files have them.
void setPatternLines(AcDbHatch& hatch, const std::string& name, std::vector<PatternLine> lines,
                     const PatternPlacing& placing);

}  // namespace atelier
