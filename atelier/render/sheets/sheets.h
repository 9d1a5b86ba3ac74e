// Sheets of a set: parts of a drawing at scale on pages with the frame and the title block of a template drawing.
// A template is drawn in millimetres of paper. A closed polyline on its layer FEUILLE is the edge of the sheet, one on
// its layer DESSIN the room for the drawing, one on LOGO that of a logo, if any; they aren't plotted. Marks such as <FEUILLE> in its texts are replaced.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/shapes/inks.h"
#include "atelier/render/shapes/primitives.h"

class AcDbDatabase;
struct _cairo;

namespace atelier::render {

// An upright match line, in drawing units.
struct MatchLine {
  double x = 0, yMin = 0, yMax = 0;
};

struct SheetView {
  Box window;  // drawing units
  std::vector<MatchLine> cuts;
  std::set<std::uint64_t> hidden;  // handles of objects that this view doesn't show
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

// A part of the drawing above the profile, turned so that a direction of the drawing lies along the sheet.
struct PlanStrip {
  struct Label {
    Pt at;  // of its middle, drawing units
    std::string text;
  };
  struct Line {
    Pt from, to;       // drawing units
    bool cut = false;  // a match line; else a thin one
  };
  double heightMm = 0;
  Pt at;                // this point of the drawing stands at the middle of the strip's height
  double angle = 0;     // the direction that runs to the right, radians
  double abscissa = 0;  // and above this abscissa of the last view, drawing units
  std::vector<Line> lines;
  std::vector<Label> labels;  // level on the sheet
};

// What is drawn on the sheet itself, in millimetres from the lower left corner of the room.
struct PaperItem {
  enum class Kind : unsigned char { line, text, area, blank, picture } kind = Kind::line;
  std::vector<Pt> points;
  double size = 0;   // weight of a line, height of a text
  int side = 0;      // of a text at its point: 0 left end, 1 middle, 2 right end
  double angle = 0;  // of a text, counterclockwise
  std::string text;  // UTF-8; of a picture its file
};

struct Sheet {
  double scale = 1000;  // denominator; a drawing unit is a metre
  // Side by side from the left of the room; the same height of the drawing is everywhere at the same height of the paper.
  // The whole, with its insets, is centred in height.
  std::vector<SheetView> views;
  std::vector<Inset> insets;  // about the last view
  std::optional<Graduation> graduation;
  std::optional<PlanStrip> plan;
  std::vector<PaperItem> items;
  std::vector<std::pair<std::string, std::string>> texts;  // a mark and the text that replaces it, UTF-8
};

struct Template {
  std::string name;  // of the file, for messages
  std::string bytes;
  Box sheet, room;  // millimetres, y upwards
  Box logo;         // the same; empty without a room for one
};

// The template's drawing with its marks replaced.
std::string filled(const Template& model, const std::vector<std::pair<std::string, std::string>>& texts);

// Throws FileError when the file can't be read, PlotError when it lacks one of the two polylines.
Template readTemplate(const std::string& file);

// What a reader of the file is told; UTF-8.
struct SetInfo {
  std::string title, author, subject;
  std::string colours;    // what inksNamed takes; empty: the table that the layout of the model space names
  fonts::FontStyle font;  // of what is written on the sheets themselves: axes, plans, lists
};

// A sheet is found in the reader's list by what its text for this mark says, else by the title.
inline constexpr const char* kBookmark = "<SIGNET>";

class PdfFile;

// Where a sheet is painted: pages of a PDF, or a picture.
struct SheetCanvas {
  _cairo* context = nullptr;
  double unitsPerMm = 1;   // of the surface
  bool vectors = true;     // else pixels
  PdfFile* pdf = nullptr;  // where layers are noted
};

// Sheets ready to be painted, over and over. The drawing outlives them.
class SheetSet {
 public:
  // Throws PlotError for no sheets.
  SheetSet(const AcDbDatabase& drawing, Template model, std::vector<Sheet> sheets, SetInfo info);
  std::size_t size() const { return sheets_.size(); }
  double widthMm() const { return model_.sheet.width(); }
  double heightMm() const { return model_.sheet.height(); }
  const SetInfo& info() const { return info_; }
  // The line of a sheet in a list of them.
  const std::string& titleOf(std::size_t sheet) const;
  const std::string& colours() const { return info_.colours; }
  // Throws as inksNamed does.
  void setColours(const std::string& name);
  // Throws PlotError for a view without size, or views that are larger than the room together.
  void paint(std::size_t sheet, const SheetCanvas& canvas);
  std::vector<std::string> warnings;  // French, each once; of what was painted

 private:
  void warn(const std::vector<std::string>& texts);
  Template model_;
  std::vector<Sheet> sheets_;
  SetInfo info_;
  Inks inks_;
  WholeScene scene_;
};

// Writes the sheets as the pages of a PDF, completely or not at all. Throws PlotError as paint does, or for a file that can't be
// written.
void plotSheets(SheetSet& sheets, const std::string& file);

}  // namespace atelier::render
