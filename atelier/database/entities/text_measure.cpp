// Texts measured with the fonts room.
// Fonts are kept by style, since a table asks for the same one thousands of times.
#include "atelier/database/entities/text_measure.h"

#include <algorithm>
#include <map>
#include <numbers>
#include <tuple>

#include "atelier/database/objects/imp_database.h"

namespace atelier {
namespace {

const fonts::Font& fontFor(const fonts::FontStyle& style) {
  using Key = std::tuple<std::string, double, double, bool, bool>;
  static thread_local std::map<Key, fonts::Font> kept;
  const Key key(style.file, style.widthFactor, style.oblique, style.bold, style.italic);
  auto it = kept.find(key);
  if (it == kept.end()) it = kept.emplace(key, fonts::Font(style)).first;
  return it->second;
}

// A style made from a family rather than a file names it in XDATA, with bits for its weight and slant.
void readFamily(const Record& record, fonts::FontStyle& style) {
  bool mine = false;
  for (std::size_t i = record.xdataStart(); i < record.groups.size(); ++i) {
    const Group& group = record.groups[i];
    if (group.code() == 1001) mine = group.text() == "ACAD";
    if (mine && group.code() == 1000 && !group.text().empty()) style.file = group.text();
    if (!mine || group.code() != 1071) continue;
    style.bold = (group.integer() & FontBits::kBold) != 0;
    style.italic = (group.integer() & FontBits::kItalic) != 0;
  }
}

}  // namespace

fonts::FontStyle fontStyle(AcDbImpDatabase* database, std::string_view styleName, double widthFactor, double oblique) {
  fonts::FontStyle style;
  style.widthFactor = widthFactor;
  style.oblique = oblique;
  AcDbStub* stub = database ? database->tableRecord("STYLE", styleName) : nullptr;
  if (!stub) return style;
  const Record& record = AcDbImpObject::of(&database->object(*stub)).record;
  style.file = record.text(textField("AcDbTextStyleTableRecord", 3, "txt"));
  readFamily(record, style);
  return style;
}

// Group 101 opens the data: 71 kind (1 static, 2 dynamic), 72 number, 44 width, 45 gutter, 73 heights by themselves, 74 from
// the right, 46 the height of each, 41 that of all.
fonts::MTextColumns columnsOf(const Record& paragraph) {
  fonts::MTextColumns columns;
  const auto& groups = paragraph.groups;
  const auto end = groups.begin() + static_cast<std::ptrdiff_t>(paragraph.xdataStart());
  auto at = std::find_if(groups.begin(), end, [](const Group& g) { return g.code() == 101; });
  bool any = false, even = false;
  double height = 0;
  for (; at != end; ++at) switch (at->code()) {
      case 71: any = at->integer() != 0; break;
      case 72: columns.count = static_cast<std::size_t>(std::clamp<std::int64_t>(at->integer(), 0, 1000)); break;
      case 44: columns.width = at->real(); break;
      case 45: columns.gutter = at->real(); break;
      case 73: even = at->integer() != 0; break;
      case 74: columns.fromRight = at->integer() != 0; break;
      case 46: columns.heights.push_back(at->real()); break;
      case 41: height = at->real(); break;
      default: break;
    }
  if (!any) return {};
  if (even || columns.heights.empty()) columns.heights = {height};
  return columns;
}

fonts::Box paragraphInk(const AcDbMText& text) {
  constexpr std::string_view kMText = "AcDbMText";
  const Record& record = AcDbImpObject::of(&text).record;
  AcDbImpDatabase* database = databaseOf(&text);
  const std::string name = record.text(textField(kMText, 7, "Standard"));
  fonts::MTextStyle style;
  style.format.font = fontStyle(database, name, 1, 0);
  if (AcDbStub* stub = database ? database->tableRecord("STYLE", name) : nullptr) {
    const Record& of = AcDbImpObject::of(&database->object(*stub)).record;
    style.format.font.widthFactor = of.real(realField("AcDbTextStyleTableRecord", 41, 1));
    style.format.font.oblique = of.real(realField("AcDbTextStyleTableRecord", 50)) * std::numbers::pi / 180;
  }
  style.format.height = text.textHeight();
  style.wrapWidth = text.width();
  style.attachment = text.attachment();
  style.lineSpacing = record.real(realField(kMText, 44, 1));
  style.exactSpacing = record.integer(integerField(kMText, 73, 1)) == LineSpacing::kExact;
  style.columns = columnsOf(record);
  return fonts::layoutMText(toUtf8(text.contents().kACharPtr()), style).ink;
}

MeasuredText::MeasuredText(const AcDbText& text) : height_(text.height()) {
  const Record& record = AcDbImpObject::of(&text).record;
  const std::int64_t mirror = record.integer(integerField("AcDbText", 71));
  backwards_ = (mirror & TextMirror::kBackwards) != 0, upsideDown_ = (mirror & TextMirror::kUpsideDown) != 0;
  const fonts::FontStyle style = fontStyle(databaseOf(&text), record.text(textField("AcDbText", 7, "Standard")),
                                           text.widthFactor(), text.oblique());
  extents_ = fontFor(style).extents(record.text(textField("AcDbText", 1)), height_);
}

double MeasuredText::anchorX(AcDb::TextHorzMode mode) const {
  if (isEmpty()) return 0;
  if (mode == AcDb::kTextCenter || mode == AcDb::kTextMid) return (left() + right()) / 2;
  return mode == AcDb::kTextRight ? (backwards_ ? left() : right()) : 0;
}

double MeasuredText::anchorY(const AcDbText& text) const {
  constexpr double kDescender = -1.0 / 3.0;  // of the capital height, the bottom line of the host's texts
  const double height = upsideDown_ ? -height_ : height_;
  if (text.horizontalMode() == AcDb::kTextMid) return isEmpty() ? 0 : height / 2;
  switch (text.verticalMode()) {
    case AcDb::kTextBottom: return kDescender * height;
    case AcDb::kTextVertMid: return height / 2;
    case AcDb::kTextTop: return height;
    default: return 0;
  }
}

}  // namespace atelier
