// New dimensions, made of what they measure, for the commands that ask for it.
// Inner header of the room.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/drawing/recorded.h"

namespace atelier {

// What was asked of the user for a dimension, beside its points.
struct Wording {
  std::string text;  // empty: what is measured
  double turn = 0;   // of the text, radians
};

// The kinds as group 70 has them; an ordinate along x has the flag as well.
enum DimensionKind {
  kRotated = 0,
  kAligned = 1,
  kDiameter = 3,
  kRadius = 4,
  kAngular = 5,
  kOrdinate = 6,
  kAlongX = 64
};

// A dimension of a kind with its definition point and further groups, a class mark among them; its text stands where the
// user says or where the style has it. It has the current style and settings.
AcDbObjectId addDimension(const Command& c, int kind, const AcGePoint3d& definition,
                          const std::vector<std::vector<Group>>& more, const Wording& wording,
                          const std::optional<AcGePoint3d>& text = {});

struct Measured {
  AcGePoint3d first, second;
};

// One with its line through a place, in a direction in radians.
AcDbObjectId addLinear(const Command& c, const Measured& points, double angle, const AcGePoint3d& place,
                       const Wording& wording);

}  // namespace atelier
