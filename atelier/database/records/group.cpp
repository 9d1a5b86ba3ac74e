// The table of value kinds by group code.
// Ranges are those of the DXF reference; where two rows fit a code, the first one counts.
#include "atelier/database/records/group.h"

#include <array>
#include <iterator>

namespace atelier {
namespace {

struct Range {
  int first, last;
  GroupKind kind;
};

constexpr Range kRanges[] = {
    {5, 5, GroupKind::handle},       {0, 9, GroupKind::text},        {10, 59, GroupKind::real},
    {60, 79, GroupKind::integer},    {90, 99, GroupKind::integer},   {105, 105, GroupKind::handle},
    {100, 109, GroupKind::text},     {110, 149, GroupKind::real},    {160, 169, GroupKind::integer},
    {170, 179, GroupKind::integer},  {210, 239, GroupKind::real},    {270, 299, GroupKind::integer},
    {300, 309, GroupKind::text},     {310, 319, GroupKind::binary},  {320, 369, GroupKind::handle},
    {370, 389, GroupKind::integer},  {390, 399, GroupKind::handle},  {400, 409, GroupKind::integer},
    {410, 419, GroupKind::text},     {420, 429, GroupKind::integer}, {430, 439, GroupKind::text},
    {440, 459, GroupKind::integer},  {460, 469, GroupKind::real},    {470, 479, GroupKind::text},
    {480, 481, GroupKind::handle},   {999, 1003, GroupKind::text},   {1004, 1004, GroupKind::binary},
    {1005, 1005, GroupKind::handle}, {1006, 1009, GroupKind::text},  {1010, 1059, GroupKind::real},
    {1060, 1079, GroupKind::integer}};

// One entry for each code, so that every group read costs one look.
constexpr int kCodes = 1080;
constexpr auto kKinds = [] {
  std::array<GroupKind, kCodes> kinds{};
  for (auto range = std::rbegin(kRanges); range != std::rend(kRanges); ++range)
    for (int code = range->first; code <= range->last; ++code) kinds[static_cast<std::size_t>(code)] = range->kind;
  return kinds;
}();

}  // namespace

GroupKind kindOfCode(int code) {
  return code >= 0 && code < kCodes ? kKinds[static_cast<std::size_t>(code)] : GroupKind::text;
}

}  // namespace atelier
