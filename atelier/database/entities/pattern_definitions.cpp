// The common patterns are written as a pattern file has them.
#include "atelier/database/entities/pattern_definitions.h"

#include <charconv>
#include <cmath>
#include <numbers>
#include <sstream>

#include "atelier/base/text.h"
#include "atelier/database/objects/imp_object.h"

namespace atelier {
namespace {

constexpr std::string_view kHatch = "AcDbHatch";

// Metric: steps of an eighth of an inch.
constexpr std::string_view kCommon = R"(*ANSI31
45, 0,0, 0,3.175
*ANSI32
45, 0,0, 0,9.525
45, 4.49013,0, 0,9.525
*ANSI33
45, 0,0, 0,6.35
45, 4.49013,0, 0,6.35, 3.175,-1.5875
*ANSI37
45, 0,0, 0,3.175
135, 0,0, 0,3.175
*ANSI38
45, 0,0, 0,3.175
135, 0,0, 6.35,3.175, 7.9375,-4.7625
*LINE
0, 0,0, 0,3.175
*NET
0, 0,0, 0,3.175
90, 0,0, 0,3.175
*NET3
0, 0,0, 0,3.175
60, 0,0, 0,3.175
120, 0,0, 0,3.175
*DOTS
0, 0,0, 0.79375,1.5875, 0,-1.5875
*DASH
0, 0,0, 3.175,3.175, 3.175,-3.175
*CROSS
0, 0,0, 6.35,6.35, 3.175,-9.525
90, 1.5875,-1.5875, 6.35,6.35, 3.175,-9.525
*EARTH
0, 0,0, 6.35,6.35, 6.35,-6.35
0, 0,2.38125, 6.35,6.35, 6.35,-6.35
0, 0,4.7625, 6.35,6.35, 6.35,-6.35
90, 0.79375,5.55625, 6.35,6.35, 6.35,-6.35
90, 3.175,5.55625, 6.35,6.35, 6.35,-6.35
90, 5.55625,5.55625, 6.35,6.35, 6.35,-6.35
)";

// The numbers of a line, or nothing when one of its fields isn't a number.
std::optional<std::vector<double>> numbersOf(std::string_view line) {
  std::vector<double> numbers;
  while (true) {
    const std::size_t comma = line.find(',');
    const std::string_view field = trimmed(line.substr(0, comma));
    double value = 0;
    const auto read = std::from_chars(field.data(), field.data() + field.size(), value);
    if (read.ec != std::errc() || read.ptr != field.data() + field.size()) return std::nullopt;
    numbers.push_back(value);
    if (comma == std::string_view::npos) return numbers;
    line.remove_prefix(comma + 1);
  }
}

}  // namespace

std::optional<std::vector<PatternLine>> patternIn(std::string_view text, std::string_view name) {
  std::istringstream in{std::string(text)};
  std::vector<PatternLine> lines;
  bool inside = false;
  for (std::string row; std::getline(in, row);) {
    const std::string_view line = trimmed(std::string_view(row).substr(0, row.find(';')));
    if (line.empty()) continue;
    if (line.front() == '*') {
      if (inside) break;
      inside = equalNoCase(trimmed(line.substr(1, line.find(',') - 1)), name);
    } else if (inside) {
      constexpr std::size_t kDashes = 5;
      const auto numbers = numbersOf(line);
      if (!numbers || numbers->size() < kDashes) return std::nullopt;
      const std::vector<double>& n = *numbers;
      lines.push_back({n[0], {n[1], n[2]}, {n[3], n[4]}, {n.begin() + kDashes, n.end()}});
    }
  }
  return lines.empty() ? std::nullopt : std::optional(std::move(lines));
}

std::optional<std::vector<PatternLine>> commonPattern(std::string_view name) { return patternIn(kCommon, name); }

void setPatternLines(AcDbHatch& hatch, const std::string& name, std::vector<PatternLine> lines,
                     const PatternPlacing& placing) {
  Record* record = AcDbImpObject::of(&hatch).writable();
  if (!record) return;
  const double degrees = placing.angle * 180 / std::numbers::pi;
  const auto turned = [](const AcGeVector2d& v, double angle) {
    return AcGeVector2d(v.x * std::cos(angle) - v.y * std::sin(angle), v.x * std::sin(angle) + v.y * std::cos(angle));
  };
  for (PatternLine& line : lines) {
    // In a hatch the steps are those of its plane.
    const double own = (line.angle + degrees) * std::numbers::pi / 180;
    line.step = turned(line.step * placing.scale, own);
    const AcGeVector2d base = turned(AcGeVector2d(line.base.x, line.base.y) * placing.scale, placing.angle);
    line.base = {base.x, base.y};
    line.angle += degrees;
    for (double& dash : line.dashes) dash *= placing.scale;
  }
  record->setText(textField(kHatch, 2), upperCase(name));
  record->setInteger(integerField(kHatch, 70), 0);
  record->setInteger(integerField(kHatch, 76), AcDbHatch::kPreDefined);
  std::vector<Group> groups = {Group::real(52, degrees), Group::real(41, placing.scale), Group::integer(77, 0),
                               Group::integer(78, static_cast<std::int64_t>(lines.size()))};
  writePattern(lines, groups);
  const std::size_t seeds = record->find(integerField(kHatch, 98));
  const std::size_t place = seeds == Record::npos ? record->groups.size() : seeds;
  record->groups.insert(record->groups.begin() + static_cast<std::ptrdiff_t>(place), groups.begin(), groups.end());
}

}  // namespace atelier
