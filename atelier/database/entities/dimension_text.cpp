// The number is the one behind what the dimension's own text says before "<>"; without such a text, the first.
#include "atelier/database/entities/dimension_text.h"

#include <charconv>
#include <string_view>

#include "atelier/base/text.h"
#include "atelier/database/objects/imp_database.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string fixed(double value, int decimals, char mark) {
  char buffer[400];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
  std::string text(buffer, result.ptr);
  if (const std::size_t point = text.find('.'); point != std::string::npos) text[point] = mark;
  return text;
}

// Rounded to four digits.
double significant(double value) {
  constexpr int kDigits = 3;
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, kDigits).ptr;
  std::from_chars(buffer, end, value);
  return value;
}

// Index behind the formatting code of a paragraph that begins there ("\\A1;", "\\P").
std::size_t afterCode(const std::string& text, std::size_t at) {
  constexpr std::string_view kWithValue = "ACFHQTWfp";
  if (at + 1 >= text.size() || kWithValue.find(text[at + 1]) == std::string_view::npos) return at + 2;
  const std::size_t end = text.find(';', at);
  return end == std::string::npos ? text.size() : end + 1;
}

}  // namespace

std::string renumbered(const std::string& text, const std::string& prefix, const Scaled& length) {
  const std::size_t start = text.find(prefix);
  if (start == std::string::npos) return text;
  std::size_t i = start + prefix.size();
  while (i < text.size() && !isDigit(text[i])) i = text[i] == '\\' ? afterCode(text, i) : i + 1;
  if (i >= text.size()) return text;
  std::size_t end = i;
  while (end < text.size() && isDigit(text[end])) ++end;
  std::string number = text.substr(i, end - i);
  int decimals = 0;
  char mark = 0;
  if (end + 1 < text.size() && (text[end] == '.' || text[end] == ',') && isDigit(text[end + 1])) {
    mark = text[end++];
    number += '.';
    for (; end < text.size() && isDigit(text[end]); ++end, ++decimals) number += text[end];
  }
  double value = 0;
  std::from_chars(number.data(), number.data() + number.size(), value);
  // The shown number is rounded: the factor is one of few digits that gives the same number.
  const double factor = significant(value / length.before);
  if (fixed(factor * length.before, decimals, '.') == number) value = factor * length.before;
  return text.substr(0, i) + fixed(value * length.scale, decimals, mark) + text.substr(end);
}

void updateDimensionText(AcDbStub& dimension, const std::string& name, const Scaled& length) {
  AcDbImpDatabase& db = *dimension.database;
  const std::string own = AcDbImpObject::of(&db.object(dimension)).record.text(textField("AcDbDimension", 1));
  AcDbStub* block = db.tableRecord("BLOCK_RECORD", name);
  const std::size_t measured = own.find("<>");
  if (!block || !block->children || (!own.empty() && measured == std::string::npos)) return;
  const std::string prefix = own.empty() ? std::string() : own.substr(0, measured);
  for (AcDbStub* child : *block->children) {
    if (child->is(AcDbStub::kErased)) continue;
    const AcDbEntityPointer part(idOf(child), AcDb::kForWrite);
    if (part.openStatus() != Acad::eOk) continue;
    if (auto* text = AcDbText::cast(part.object()))
      text->setTextString(toWide(renumbered(toUtf8(text->textString().kACharPtr()), prefix, length)).c_str());
    else if (auto* paragraph = AcDbMText::cast(part.object()))
      paragraph->setContents(toWide(renumbered(toUtf8(paragraph->contents().kACharPtr()), prefix, length)).c_str());
  }
}

}  // namespace atelier
