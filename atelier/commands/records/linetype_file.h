// Line type files: "*NAME,description", then "A,dash,-gap,...".
// Reference: DXF reference, LTYPE; the .lin format as programs write it.
// Inner header of the room.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace atelier {

// A part of a pattern: positive a dash, negative a gap, 0 a dot; before it, perhaps, a text.
struct LinetypePart {
  double length = 0;
  std::string text, style;
  double scale = 1, rotation = 0, x = 0, y = 0;  // rotation in degrees
  bool upright = false;                          // turned against the drawing, not against the line
};
struct LinetypeDefinition {
  std::string name, description;
  std::vector<LinetypePart> parts;
  bool hasShapes = false;  // shapes are left out
};

// The definitions of a file; throws Error that names the line of a pattern that can't be read.
std::vector<LinetypeDefinition> readLinetypes(const std::string& file, std::string_view text);

}  // namespace atelier
