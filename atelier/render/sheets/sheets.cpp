// Templates, and the pages of a set: the views, then the template with its texts replaced.
// Marks are replaced in the template's bytes before it is read, so that all kinds of texts are treated alike.
#include "atelier/render/sheets/sheets.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>

#include "atelier/base/text.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/records/groups.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/ink_tables.h"
#include "atelier/render/sheets/pdf_file.h"
#include "atelier/render/sheets/sheet_page.h"

namespace atelier::render {
namespace {

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

// The box of the closed polyline on a layer; empty without one.
Box boxOn(AcDbDatabase& database, const std::string& layer) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  Box box;
  for (AcDbStub* stub : *imp.modelSpace()->children) {
    const Groups groups(AcDbImpObject::of(&imp.object(*stub)).settled());
    if (!equalNoCase(groups.text(8), layer)) continue;
    for (const AcGePoint3d& p : groups.points(10)) box.add(Pt{p.x, p.y});
  }
  return box;
}

Box frameOn(AcDbDatabase& database, const std::string& layer, const std::string& file) {
  const Box box = boxOn(database, layer);
  if (box.width() <= 0 || box.height() <= 0)
    throw PlotError(file + " : une polyligne fermée est attendue sur le calque " + layer);
  return box;
}

}  // namespace

std::string filled(const Template& model, const std::vector<std::pair<std::string, std::string>>& texts) {
  return replaced(model.bytes, texts);
}

Template readTemplate(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in) throw FileError(file, 0, "fichier introuvable ou illisible");
  Template model{file, text.str(), {}, {}, {}};
  OpenTemplate opened(model, {});
  model.sheet = frameOn(opened.database, "FEUILLE", file);
  model.room = frameOn(opened.database, "DESSIN", file);
  model.logo = boxOn(opened.database, "LOGO");
  return model;
}

SheetSet::SheetSet(const AcDbDatabase& drawing, Template model, std::vector<Sheet> sheets, SetInfo info)
    : model_(std::move(model)), sheets_(std::move(sheets)), info_(std::move(info)), scene_(drawing) {
  if (sheets_.empty()) throw PlotError("aucune feuille à tracer");
  if (!info_.colours.empty()) setColours(info_.colours);
  else if (AcDbStub* const space = AcDbImpDatabase::of(&drawing).modelSpace())
    info_.colours = tableOf(*space), inks_ = inksOf(*space);
  warn(scene_.warnings());
}

void SheetSet::setColours(const std::string& name) {
  inks_ = inksNamed(name);
  info_.colours = name;
}

const std::string& SheetSet::titleOf(std::size_t sheet) const {
  const auto& texts = sheets_[sheet].texts;
  const auto found = std::ranges::find(texts, kBookmark, &std::pair<std::string, std::string>::first);
  return found == texts.end() ? info_.title : found->second;
}

void SheetSet::paint(std::size_t sheet, const SheetCanvas& canvas) {
  const OpenTemplate opened(model_, sheets_[sheet].texts);
  const WholeScene frame(opened.database);
  const SheetPage page(canvas, model_, inks_, info_.font);
  // A page of words and lines alone shows no part of the drawing.
  if (!sheets_[sheet].views.empty() || sheets_[sheet].items.empty()) page.views(scene_, sheets_[sheet]);
  page.items(sheets_[sheet].items);
  page.show(frame, page.paper(), fonts::rectangle(model_.sheet).bounds(page.paper()));
  warn(frame.warnings());
}

void SheetSet::warn(const std::vector<std::string>& texts) {
  for (const std::string& text : texts)
    if (std::ranges::find(warnings, text) == warnings.end()) warnings.push_back(text);
}

void plotSheets(SheetSet& sheets, const std::string& file) {
  PdfFile pdf(file);
  pdf.describe(sheets.info().title, sheets.info().author, sheets.info().subject);
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    pdf.beginPage(sheets.widthMm(), sheets.heightMm());
    pdf.bookmark(sheets.titleOf(i));
    sheets.paint(i, {pdf.context(), PdfFile::kPointsPerMm, true, &pdf});
  }
  pdf.finish();
}

}  // namespace atelier::render
