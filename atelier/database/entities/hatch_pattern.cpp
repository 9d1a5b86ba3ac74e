// Reading, writing and mapping the lines of a hatch's pattern.
// Their groups stand after the style, since the codes mean other things within the loops.
#include "atelier/database/entities/hatch_pattern.h"

#include <numbers>

#include "atelier/database/entities/group_reader.h"

namespace atelier {
namespace {

constexpr int kStyle = 75, kLineCount = 78;
constexpr int kAngle = 53, kBaseX = 43, kBaseY = 44, kStepX = 45, kStepY = 46, kDashCount = 79, kDash = 49;
constexpr double kDegree = std::numbers::pi / 180;

}  // namespace

PatternAt loadPattern(std::span<const Group* const> groups) {
  PatternAt pattern;
  GroupReader in(groups);
  if (!in.seek(kStyle) || !in.seek(kLineCount)) return pattern;
  std::int64_t count = in.integer(kLineCount);
  pattern.begin = in.place();
  for (; count > 0 && in.at(kAngle); --count) {
    PatternLine line;
    line.angle = in.real(kAngle);
    line.base.x = in.real(kBaseX);
    line.base.y = in.real(kBaseY);
    line.step.x = in.real(kStepX);
    line.step.y = in.real(kStepY);
    for (std::int64_t n = in.integer(kDashCount); n > 0 && in.at(kDash); --n) line.dashes.push_back(in.real(kDash));
    pattern.lines.push_back(std::move(line));
  }
  pattern.end = in.place();
  return pattern;
}

void writePattern(const std::vector<PatternLine>& lines, std::vector<Group>& out) {
  GroupWriter writer(out);
  for (const PatternLine& line : lines) {
    writer.real(kAngle, line.angle);
    writer.real(kBaseX, line.base.x);
    writer.real(kBaseY, line.base.y);
    writer.real(kStepX, line.step.x);
    writer.real(kStepY, line.step.y);
    writer.count(kDashCount, line.dashes.size());
    for (const double dash : line.dashes) writer.real(kDash, dash);
  }
}

void transform(PatternLine& line, const PlaneMap& map) {
  line.base = map(line.base);
  if (map.onlyMoves()) return;
  const AcGeVector2d along = map(AcGeVector2d(std::cos(line.angle * kDegree), std::sin(line.angle * kDegree)));
  line.angle = along.angle() / kDegree;
  line.step = map(line.step);
  for (double& dash : line.dashes) dash *= along.length();
}

}  // namespace atelier
