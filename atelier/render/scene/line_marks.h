// Texts and shapes that a line type repeats along a line.
// Reference: DXF reference, "LTYPE". Inner header of the room.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/fonts/shape_file.h"
#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// Lengths are at line type scale 1.
struct LineMark {
  double along = 0;  // from the start of the pattern
  double room = 0;   // of the gap behind it
  Pt offset;         // along the line and across it
  double scale = 1;
  double turn = 0;  // radians, from the line's direction, or from the x axis when absolute
  bool absolute = false;
  std::string text;
  std::string style;                      // of the text
  std::vector<fonts::PenStroke> strokes;  // of a shape
};

// The marks of a line type. What can't be shown is told by `absent`, the file that isn't there.
std::vector<LineMark> readLineMarks(AcDbImpDatabase& database, const Record& linetype, std::string& absent);

// Where a mark stands along a path: for each pattern length from the start of each subpath, while the line has room for it.
// Gives the frame of the mark, x along the line. Nothing when there would be too many.
std::vector<Affine> placesAlong(const Path& path, const LineMark& mark, double period, double scale);

}  // namespace atelier::render
