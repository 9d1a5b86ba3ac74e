// Sheets of a set: parts of a drawing at scale on pages with the frame and the title block of a template drawing.
// A template is drawn in millimetres of paper. A closed polyline on its layer FEUILLE is the edge of the sheet, one on
// its layer DESSIN the room for the drawing; neither is plotted. Marks such as <FEUILLE> in its texts are replaced.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "atelier/render/shapes/primitives.h"

class AcDbDatabase;

namespace atelier::render {

// An upright match line, in drawing units.
struct MatchLine {
  double x = 0, yMin = 0, yMax = 0;
};

struct SheetView {
  Box window;  // drawing units
  std::vector<MatchLine> cuts;
};

// Another part of the drawing, shown as if it stood displaced by so much.
struct Inset {
  Box window;  // drawing units
  Pt shift;
};

// A graduated axis at the left of the last view, its labels to the left of it.
struct Graduation {
  double width = 0;           // room for the labels, drawing units
  double yMin = 0, yMax = 0;  // of the axis
  double textHeight = 0;
  std::vector<std::pair<double, std::string>> marks;  // y and label, UTF-8
};

struct Sheet {
  double scale = 1000;  // denominator; a drawing unit is a metre
  // Side by side from the left of the room; the same height of the drawing is everywhere at the same height of the paper.
  // The whole, with its insets, is centred in height.
  std::vector<SheetView> views;
  std::vector<Inset> insets;  // about the last view
  std::optional<Graduation> graduation;
  std::vector<std::pair<std::string, std::string>> texts;  // a mark and the text that replaces it, UTF-8
};

struct Template {
  std::string name;  // of the file, for messages
  std::string bytes;
  Box sheet, room;  // millimetres, y upwards
};

// Throws FileError when the file can't be read, PlotError when it lacks one of the two polylines.
Template readTemplate(const std::string& file);

// Writes the sheets as the pages of a PDF, completely or not at all. Gives warnings, in French. Throws PlotError for no
// sheets, a view without size, views that are larger than the room together, or a file that can't be written.
std::vector<std::string> plotSheets(const AcDbDatabase& drawing, const Template& model,
                                    const std::vector<Sheet>& sheets, const std::string& file);

}  // namespace atelier::render
