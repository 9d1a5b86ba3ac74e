// What the groups of carried entities mean when they are moved, as a table.
// Inner header of the room. Reference: DXF reference, chapter "ENTITIES".
#pragma once
#include <span>
#include <string_view>

namespace atelier {

enum class Meaning : unsigned char {
  point,       // in the world
  planePoint,  // in the entity's plane
  vector,      // turns and scales
  direction,   // of unit length: turns
  length,      // scales
  angle,       // in the plane, in degrees
  mirrorSide   // 0 and 2 change places under a mirror
};

struct CarriedGroup {
  std::string_view mark;
  int code;
  Meaning meaning;
};

// What an entity of that type can do beside being moved.
struct CarriedType {
  std::string_view type;
  bool turns, scales, mirrors;
  std::span<const CarriedGroup> groups;
};

// Null for a type that can't be transformed.
const CarriedType* carriedType(std::string_view type);

}  // namespace atelier
