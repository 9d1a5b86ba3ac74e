// Composing pages: the template's display list with its texts replaced, then each view clipped to its window.
// Marks are replaced in the template's bytes before it is read, so that all kinds of texts are treated alike.
#include "atelier/render/sheets/sheets.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

#include "atelier/base/interruption.h"
#include "atelier/base/text.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/database/records/groups.h"
#include "atelier/render/scene/scene.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/pdf_file.h"

namespace atelier::render {
namespace {

constexpr double kHairlineMm = 0.09;
constexpr double kSlackMm = 0.05;  // a view may be larger than the room by this
constexpr double kCutOverhangMm = 3;

// Characters beyond ASCII as \U+XXXX, which every version of the format reads; no line ends inside a group.
std::string drawingText(std::string_view utf8) {
  std::string out;
  for (const wchar_t c : toWide(utf8)) {
    if (c < ' ') {
      out += ' ';
    } else if (c < 0x7f) {
      out += static_cast<char>(c);
    } else {
      char digits[8];
      const char* end = std::to_chars(digits, digits + sizeof digits, static_cast<unsigned>(c), 16).ptr;
      const std::string hex = upperCase(std::string_view(digits, static_cast<std::size_t>(end - digits)));
      out += "\\U+" + std::string(hex.size() < 4 ? 4 - hex.size() : 0, '0') + hex;
    }
  }
  return out;
}

std::string replaced(std::string bytes, const std::vector<std::pair<std::string, std::string>>& texts) {
  for (const auto& [mark, text] : texts) {
    if (mark.empty()) continue;
    const std::string with = drawingText(text);
    for (std::size_t at = 0; (at = bytes.find(mark, at)) != bytes.npos; at += with.size())
      bytes.replace(at, mark.size(), with);
  }
  return bytes;
}

// A template opened with its marks replaced; the bytes live as long as the database.
struct OpenTemplate {
  OpenTemplate(const Template& model, const std::vector<std::pair<std::string, std::string>>& texts)
      : bytes(replaced(model.bytes, texts)), database(false) {
    dxf::readBytes(database, model.name, bytes, nullptr);
  }
  std::string bytes;
  AcDbDatabase database;
};

// The box of the closed polyline on a layer.
Box frameOn(AcDbDatabase& database, const std::string& layer, const std::string& file) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  Box box;
  for (AcDbStub* stub : *imp.modelSpace()->children) {
    const Groups groups(AcDbImpObject::of(&imp.object(*stub)).settled());
    if (!equalNoCase(groups.text(8), layer)) continue;
    for (const AcGePoint3d& p : groups.points(10)) box.add(Pt{p.x, p.y});
  }
  if (box.width() <= 0 || box.height() <= 0)
    throw PlotError(file + " : une polyligne fermée est attendue sur le calque " + layer);
  return box;
}

class Composer {
 public:
  Composer(PdfFile& pdf, const Template& model) : pdf_(pdf), model_(model) {
    pdf_.beginPage(model.sheet.width(), model.sheet.height());
  }

  // Millimetres of the template to those of the page, from its top left corner.
  Affine paper() const { return {1, 0, 0, -1, -model_.sheet.xMin, model_.sheet.yMax}; }

  // Draws the part in the window with a map to the page.
  void show(const DisplayList& list, const Affine& toPage, const Box& windowMm) const {
    PaintOptions options;
    options.toSurface = Affine::scaling(PdfFile::kPointsPerMm, PdfFile::kPointsPerMm) * toPage;
    options.unitsPerMm = PdfFile::kPointsPerMm;
    options.clip = fonts::rectangle(windowMm).bounds(Affine::scaling(PdfFile::kPointsPerMm, PdfFile::kPointsPerMm));
    options.thinnest = kHairlineMm * PdfFile::kPointsPerMm;
    options.embedFonts = true;
    options.step = checkInterruption;
    paint(pdf_.context(), list, options);
  }

  void views(const DisplayList& drawing, const Sheet& sheet) const {
    const double perUnit = 1000 / sheet.scale;
    const Box room = fonts::rectangle(model_.room).bounds(paper());
    double width = 0, top = -INFINITY, bottom = INFINITY;
    for (const SheetView& view : sheet.views) {
      if (!(view.window.width() > 0 && view.window.height() > 0)) throw PlotError("vue sans étendue");
      width += perUnit * view.window.width();
      top = std::max(top, view.window.yMax);
      bottom = std::min(bottom, view.window.yMin);
    }
    const double height = perUnit * (top - bottom);
    if (width > room.width() + kSlackMm || height > room.height() + kSlackMm)
      throw PlotError("la vue mesure " + millimetres(width) + " x " + millimetres(height) + " mm, le modèle " +
                      model_.name + " offre " + millimetres(room.width()) + " x " + millimetres(room.height()) + " mm");
    double left = room.xMin;
    const double high = room.yMin + (room.height() - height) / 2;
    for (const SheetView& view : sheet.views) {
      const Affine toPage{perUnit, 0, 0, -perUnit, left - perUnit * view.window.xMin, high + perUnit * top};
      show(drawing, toPage, fonts::rectangle(view.window).bounds(toPage));
      for (const MatchLine& cut : view.cuts) matchLine(cut, toPage);
      left += perUnit * view.window.width();
    }
  }

 private:
  static std::string millimetres(double value) { return std::to_string(std::lround(value)); }

  // Draws a match line, dash-dotted and a little longer than given.
  void matchLine(const MatchLine& cut, const Affine& toPage) const {
    Box line = fonts::rectangle(Box{cut.x, cut.yMin, cut.x, cut.yMax}).bounds(toPage);
    line.yMin -= kCutOverhangMm, line.yMax += kCutOverhangMm;
    Path path;
    path.moveTo({line.xMin, line.yMin});
    path.lineTo({line.xMin, line.yMax});
    DisplayList list;
    list.add(0, Stroke{path, Pen{kForeground, 0.35,
                                 std::make_shared<const std::vector<double>>(std::vector<double>{8, 1.5, 1, 1.5})}});
    Box clip = line;
    clip.xMin -= 1, clip.xMax += 1;
    show(list, {}, clip);
  }

  PdfFile& pdf_;
  const Template& model_;
};

}  // namespace

Template readTemplate(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in) throw FileError(file, 0, "fichier introuvable ou illisible");
  Template model{file, text.str(), {}, {}};
  OpenTemplate opened(model, {});
  model.sheet = frameOn(opened.database, "FEUILLE", file);
  model.room = frameOn(opened.database, "DESSIN", file);
  return model;
}

std::vector<std::string> plotSheets(const AcDbDatabase& drawing, const Template& model,
                                    const std::vector<Sheet>& sheets, const std::string& file) {
  if (sheets.empty()) throw PlotError("aucune feuille à tracer");
  const DisplayList list = drawScene(drawing, forPlot());
  PdfFile pdf(file);
  std::vector<std::string> warnings = list.warnings;
  for (const Sheet& sheet : sheets) {
    OpenTemplate opened(model, sheet.texts);
    const DisplayList frame = drawScene(opened.database);
    const Composer page(pdf, model);
    page.views(list, sheet);
    page.show(frame, page.paper(), fonts::rectangle(model.sheet).bounds(page.paper()));
    for (const std::string& warning : frame.warnings)
      if (std::ranges::find(warnings, warning) == warnings.end()) warnings.push_back(warning);
  }
  pdf.finish();
  return warnings;
}

}  // namespace atelier::render
