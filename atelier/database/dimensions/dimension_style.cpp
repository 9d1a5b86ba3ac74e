// A dimension's own settings stand in extended data of ACAD: "DSTYLE" { code value code value ... }.
#include "atelier/database/dimensions/dimension_style.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "atelier/base/text.h"
#include "atelier/database/dimensions/dimension_variables.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

constexpr int kPost = 3, kTextStyle = 340, kLeaderArrow = 341, kArrowBlock = 342, kNumberOfCode = 1070;
constexpr int kNoLeadingZero = 4, kNoTrailingZeros = 8;

// Names of the host's own arrow blocks, in capitals; every other block is shown as a filled arrow.
ArrowForm formOf(const std::string& block) {
  if (block == "_ARCHTICK" || block == "_OBLIQUE") return ArrowForm::tick;
  if (block.starts_with("_DOT")) return ArrowForm::dot;
  return block == "_NONE" ? ArrowForm::none : ArrowForm::filled;
}

std::string recordName(AcDbImpDatabase& database, std::uint64_t handle, std::string_view mark) {
  AcDbStub* stub = database.stubOf(handle);
  return stub ? AcDbImpObject::of(&database.object(*stub)).record.text(textField(mark, 2)) : std::string();
}

std::string decimal(double value, int decimals, int zeros, char mark) {
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  std::string text(buffer, end);
  if ((zeros & kNoTrailingZeros) && text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  if ((zeros & kNoLeadingZero) && text.starts_with("0.")) text.erase(0, 1);
  std::ranges::replace(text, '.', mark);
  return text;
}

}  // namespace

std::string currentDimensionStyle(AcDbImpDatabase& database) {
  const std::string name = database.header.text("$DIMSTYLE", "Standard");
  return database.tableRecord("DIMSTYLE", name) ? name : "Standard";
}

DimensionStyle::DimensionStyle(AcDbImpDatabase& database, const Record& entity) {
  const Groups own(entity);
  if (AcDbStub* style = database.tableRecord("DIMSTYLE", own.text(3, "Standard"))) {
    // A copy: names of other records are looked up meanwhile, which may drop the style from memory.
    const Record record = AcDbImpObject::of(&database.object(*style)).record;
    const Groups groups(record);
    for (const Group* group : groups.all()) take(database, group->code(), *group);
  }
  const std::span<const Group> data = xdataOf(entity, "ACAD");
  const auto begin =
      std::ranges::find_if(data, [](const Group& g) { return g.code() == 1000 && g.text() == "DSTYLE"; });
  for (auto at = begin; at != data.end() && at + 1 != data.end(); ++at)
    if (at->code() == kNumberOfCode) {
      take(database, static_cast<int>(at->integer()), at[1]);
      ++at;
    }
  const double scale = value("DIMSCALE");
  scale_ = scale > 0 ? scale : 1;
  if (value("DIMTSZ") > 0) arrow = ArrowForm::tick;
}

void DimensionStyle::take(AcDbImpDatabase& database, int code, const Group& group) {
  if (code == kPost) around_ = group.text();
  else if (code == kTextStyle) {
    const std::string name = recordName(database, group.handle(), "AcDbTextStyleTableRecord");
    if (!name.empty()) textStyle = name;
  } else if (code == kLeaderArrow) {
    leaderArrowBlock = recordName(database, group.handle(), "AcDbBlockTableRecord");
    leaderArrow = formOf(upperCase(leaderArrowBlock));
  } else if (code == kArrowBlock) {
    arrow = formOf(upperCase(recordName(database, group.handle(), "AcDbBlockTableRecord")));
  } else if (const auto rows = dimensionVariables();
             std::ranges::find(rows, code, &DimensionVariable::code) != rows.end()) {
    given_[code] = group.real();
  }
}

double DimensionStyle::value(std::string_view name) const {
  const DimensionVariable& row = *std::ranges::find(dimensionVariables(), name, &DimensionVariable::name);
  const auto given = given_.find(row.code);
  return given == given_.end() ? row.value : given->second;
}

std::string DimensionStyle::lengthText(double length) const {
  double shown = length * value("DIMLFAC");
  if (const double step = value("DIMRND"); step > 0) shown = std::round(shown / step) * step;
  const auto mark = static_cast<char>(value("DIMDSEP"));
  const std::string number =
      decimal(shown, static_cast<int>(value("DIMDEC")), static_cast<int>(value("DIMZIN")), mark ? mark : '.');
  const std::size_t place = around_.find("<>");
  return place == std::string::npos ? number + around_ : around_.substr(0, place) + number + around_.substr(place + 2);
}

std::string DimensionStyle::angleText(double degrees) const {
  const int decimals = value("DIMADEC") < 0 ? static_cast<int>(value("DIMDEC")) : static_cast<int>(value("DIMADEC"));
  const auto mark = static_cast<char>(value("DIMDSEP"));
  // Bits 1 and 2 of DIMAZIN stand for 4 and 8 of DIMZIN.
  return decimal(degrees, decimals, static_cast<int>(value("DIMAZIN")) << 2, mark ? mark : '.') + "°";
}

}  // namespace atelier
