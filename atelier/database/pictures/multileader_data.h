// A multileader read into plain values.
// Reference: DXF reference, "MLEADER". Inner header of the room; lengths are in units of the drawing.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "atelier/database/records/record.h"

namespace atelier {

struct LeaderLine {
  std::vector<AcGePoint3d> points;  // the arrow's first
};

// Lines that meet at one end, where a landing may lead on to the content.
struct LeaderBundle {
  std::optional<AcGePoint3d> end;
  AcGeVector3d landing;  // with its length; zero: none
  std::vector<LeaderLine> lines;
};

struct LeaderText {
  std::string contents;
  std::uint64_t style = 0;
  AcGePoint3d at;
  AcGeVector3d direction{1, 0, 0}, normal{0, 0, 1};
  double height = 0, width = 0, spacing = 1;
  std::int64_t colour = 0, attachment = 1, spacingStyle = 1;
  std::int64_t fillColour = 0;
  double fillMargin = 1.5;
  bool filled = false, filledWithSheet = false;
};

struct LeaderBlock {
  std::uint64_t block = 0;
  AcGePoint3d at;
  AcGeVector3d scale{1, 1, 1}, normal{0, 0, 1};
  double turn = 0;
  std::int64_t colour = 0;
  std::vector<std::pair<std::uint64_t, std::string>> attributes;  // definition, text
};

struct MultileaderData {
  std::vector<LeaderBundle> bundles;
  std::optional<LeaderText> text;
  std::optional<LeaderBlock> block;
  enum Lines { none, straight, curved };
  std::int64_t lines = straight;
  std::int64_t lineColour = 0, lineWeight = -2;
  std::uint64_t linetype = 0, arrow = 0;
  double arrowSize = 0, gap = 0;
  bool hasLanding = true, framed = false;
  AcGeVector3d normal() const { return text ? text->normal : block ? block->normal : AcGeVector3d(0, 0, 1); }
};

MultileaderData readMultileader(const Record& record);

}  // namespace atelier
