// Texts measured with the fonts room.
// Fonts are kept by style, since a table asks for the same one thousands of times.
#include "atelier/database/text_measure.h"

#include <map>
#include <tuple>

#include "atelier/database/imp_database.h"

namespace atelier {
namespace {

const fonts::Font& fontFor(const fonts::FontStyle& style) {
  using Key = std::tuple<std::string, double, double>;
  static thread_local std::map<Key, fonts::Font> kept;
  const Key key(style.file, style.widthFactor, style.oblique);
  auto it = kept.find(key);
  if (it == kept.end()) it = kept.emplace(key, fonts::Font(style)).first;
  return it->second;
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
  return style;
}

MeasuredText::MeasuredText(const AcDbText& text) : height_(text.height()) {
  const Record& record = AcDbImpObject::of(&text).record;
  const fonts::FontStyle style = fontStyle(databaseOf(&text), record.text(textField("AcDbText", 7, "Standard")),
                                           text.widthFactor(), text.oblique());
  extents_ = fontFor(style).extents(record.text(textField("AcDbText", 1)), height_);
}

double MeasuredText::anchorX(AcDb::TextHorzMode mode) const {
  if (isEmpty()) return 0;
  if (mode == AcDb::kTextCenter || mode == AcDb::kTextMid) return (left() + right()) / 2;
  return mode == AcDb::kTextRight ? right() : 0;
}

double MeasuredText::anchorY(const AcDbText& text) const {
  constexpr double kDescender = -1.0 / 3.0;  // of the capital height, the bottom line of the host's texts
  if (text.horizontalMode() == AcDb::kTextMid) return isEmpty() ? 0 : height_ / 2;
  switch (text.verticalMode()) {
    case AcDb::kTextBottom: return kDescender * height_;
    case AcDb::kTextVertMid: return height_ / 2;
    case AcDb::kTextTop: return height_;
    default: return 0;
  }
}

}  // namespace atelier
