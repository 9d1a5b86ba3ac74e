// A multileader's codes mean other things in its context, its leaders and their lines, which braces in texts delimit:
// 300 CONTEXT_DATA{ ... 302 LEADER{ ... 304 LEADER_LINE{ ... 305 } 303 } 301 }.
#include "atelier/database/entities/multileader_groups.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace atelier {
namespace {

using Place = MultileaderPlace;

struct Row {
  Place place;
  int code;
  Meaning meaning;
};
constexpr int kContentTurn = 42, kBlockTurn = 46, kMatrix = 47;
using enum Meaning;
constexpr Row kRows[] = {
    {Place::entity, 41, length},      {Place::entity, 42, length},   {Place::entity, 45, length},
    {Place::context, 40, length},     {Place::context, 10, point},   {Place::context, 41, length},
    {Place::context, 140, length},    {Place::context, 145, length}, {Place::context, 12, point},
    {Place::context, 13, direction},  {Place::context, 43, length},  {Place::context, 44, length},
    {Place::context, 15, point},      {Place::context, 110, point},  {Place::context, 111, direction},
    {Place::context, 112, direction}, {Place::leader, 10, point},    {Place::leader, 11, direction},
    {Place::leader, 12, point},       {Place::leader, 13, point},    {Place::leader, 40, length},
    {Place::line, 10, point},         {Place::line, 11, point},      {Place::line, 12, point},
};

std::optional<Meaning> meaningOf(Place place, int code) {
  const auto* row = std::ranges::find_if(kRows, [&](const Row& r) { return r.place == place && r.code == code; });
  return row == std::end(kRows) ? std::nullopt : std::optional(row->meaning);
}

}  // namespace

MultileaderPlace multileaderPlace(MultileaderPlace place, const Group& group) {
  const std::string& text = group.text();
  // The same codes are texts elsewhere.
  if (group.code() == 300 && place == Place::entity && text.starts_with("CONTEXT_DATA")) return Place::context;
  if (group.code() == 302 && place == Place::context && text.starts_with("LEADER")) return Place::leader;
  if (group.code() == 304 && place == Place::leader && text.starts_with("LEADER_LINE")) return Place::line;
  if (group.code() == 305 && place == Place::line) return Place::leader;
  if (group.code() == 303 && place == Place::leader) return Place::context;
  if (group.code() == 301 && place == Place::context) return Place::entity;
  return place;
}

void transformMultileader(Record& record, const AcGeMatrix3d& matrix, double scale, double turn) {
  Place place = Place::entity;
  auto& groups = record.groups;
  const std::size_t end = record.xdataStart();
  std::array<std::size_t, 16> cells{};
  std::size_t cell = 0;
  for (std::size_t i = 0; i < end; ++i) {
    const int code = groups[i].code();
    place = multileaderPlace(place, groups[i]);
    if (place == Place::context && (code == kContentTurn || code == kBlockTurn))
      groups[i] = Group::real(code, groups[i].real() + turn);
    if (place == Place::context && code == kMatrix && cell < cells.size()) cells[cell++] = i;
    const auto meaning = meaningOf(place, code);
    if (!meaning) continue;
    if (*meaning == length) {
      groups[i] = Group::real(code, groups[i].real() * scale);
    } else if (i + 2 < end && groups[i + 1].code() == code + 10 && groups[i + 2].code() == code + 20) {
      const AcGePoint3d before(groups[i].real(), groups[i + 1].real(), groups[i + 2].real());
      const AcGePoint3d after =
          *meaning == point ? matrix * before : AcGePoint3d() + matrix * before.asVector() * (1 / scale);
      groups[i] = Group::real(code, after.x);
      groups[i + 1] = Group::real(code + 10, after.y);
      groups[i + 2] = Group::real(code + 20, after.z);
      i += 2;
    }
  }
  if (cell < cells.size()) return;
  AcGeMatrix3d block;
  for (std::size_t k = 0; k < cells.size(); ++k)
    block(static_cast<int>(k / 4), static_cast<int>(k % 4)) = groups[cells[k]].real();
  block = matrix * block;
  for (std::size_t k = 0; k < cells.size(); ++k)
    groups[cells[k]] = Group::real(kMatrix, block(static_cast<int>(k / 4), static_cast<int>(k % 4)));
}

}  // namespace atelier
