// Groups that occur once are changed one by one; those that repeat, all together.
// What repeats is what the record or the list has more than once.
#include "atelier/database/lists/section_merger.h"

#include <algorithm>

#include "atelier/database/objects/chain.h"

namespace atelier {
namespace {

using Groups = std::vector<Group>;

Groups part(const Groups& groups, const Item& item) {
  return {groups.begin() + static_cast<std::ptrdiff_t>(item.begin),
          groups.begin() + static_cast<std::ptrdiff_t>(item.end)};
}

const Item* itemOf(const std::vector<Item>& items, const Groups& groups, int code) {
  const auto it = std::ranges::find_if(items, [&](const Item& item) { return groups[item.begin].code() == code; });
  return it == items.end() ? nullptr : &*it;
}

// A point with as many ordinates as the record has: lists give two or three as they like.
Groups likeShown(Groups given, const Groups& shown) {
  if (shown.empty() || !isPointCode(given.front().code())) return given;
  while (given.size() > shown.size()) given.pop_back();
  for (std::size_t k = given.size(); k < shown.size(); ++k)
    given.push_back(Group::real(given.front().code() + 10 * static_cast<int>(k), 0));
  return given;
}

constexpr std::size_t kNoRank = static_cast<std::size_t>(-1);
std::ptrdiff_t at(std::size_t i) { return static_cast<std::ptrdiff_t>(i); }

}  // namespace

bool sameGroups(const Groups& a, const Groups& b) {
  return std::ranges::equal(a, b, [](const Group& x, const Group& y) { return x.sameValue(y); });
}

Groups listOf(const Groups& groups, const std::set<int>& codes) {
  Groups list;
  for (const Item& item : itemsOf(groups, 0, groups.size()))
    if (codes.contains(groups[item.begin].code()))
      for (std::size_t i = item.begin; i < item.end; ++i) list.push_back(groups[i]);
  return list;
}

std::set<int> codesOf(const Groups& groups) {
  std::set<int> codes;
  for (const Item& item : itemsOf(groups, 0, groups.size())) codes.insert(groups[item.begin].code());
  return codes;
}

std::set<int> SectionMerger::repeated() const {
  std::set<int> seen, codes;
  for (const Groups* groups : {&s_.shown, &s_.given}) {
    seen.clear();
    for (const Item& item : itemsOf(*groups, 0, groups->size()))
      if (const int code = (*groups)[item.begin].code(); !seen.insert(code).second && rankOf(code) == kNoRank)
        codes.insert(code);
  }
  return codes;
}

void SectionMerger::single(const std::set<int>& lists) {
  const auto shown = itemsOf(s_.shown, 0, s_.shown.size());
  for (const Item& item : itemsOf(s_.given, 0, s_.given.size())) {
    const int code = s_.given[item.begin].code();
    if (lists.contains(code)) continue;
    const Item* seen = itemOf(shown, s_.shown, code);
    const Groups old = seen ? part(s_.shown, *seen) : Groups(), value = likeShown(part(s_.given, item), old);
    // Of a value given twice the last one that changes something counts.
    if (!sameGroups(old, value)) set(value);
  }
}

void SectionMerger::list(const std::set<int>& codes) {
  const Groups given = listOf(s_.given, codes);
  if (!given.empty() && !sameGroups(given, listOf(s_.shown, codes))) replace(codes, given);
}

void SectionMerger::replace(const std::set<int>& codes, const Groups& groups) {
  Groups kept;
  std::size_t place = Record::npos;
  for (const Item& item : itemsOf(result_, 0, result_.size())) {
    const bool own = codes.contains(result_[item.begin].code());
    if (own && place == Record::npos) place = kept.size();
    if (!own) kept.insert(kept.end(), result_.begin() + at(item.begin), result_.begin() + at(item.end));
  }
  kept.insert(kept.begin() + at(std::min(place, kept.size())), groups.begin(), groups.end());
  result_ = std::move(kept);
}

void SectionMerger::set(const Groups& value) {
  const int code = value.front().code();
  const auto items = itemsOf(result_, 0, result_.size());
  std::size_t place = result_.size();
  if (const Item* item = itemOf(items, result_, code)) {
    place = item->begin;
    result_.erase(result_.begin() + at(item->begin), result_.begin() + at(item->end));
  } else if (const std::size_t rank = rankOf(code); rank != kNoRank) {
    // Before the first field that the format writes later.
    for (const Item& later : items)
      if (const std::size_t other = rankOf(result_[later.begin].code()); other != kNoRank && other > rank) {
        place = later.begin;
        break;
      }
  }
  result_.insert(result_.begin() + at(place), value.begin(), value.end());
}

void SectionMerger::takeGiven() {
  const auto stored = codesOf(s_.stored);
  const auto shown = itemsOf(s_.shown, 0, s_.shown.size());
  result_.clear();
  for (const Item& item : itemsOf(s_.given, 0, s_.given.size())) {
    const int code = s_.given[item.begin].code();
    const Item* seen = itemOf(shown, s_.shown, code);
    const Groups value = likeShown(part(s_.given, item), seen ? part(s_.shown, *seen) : Groups());
    if (seen && !stored.contains(code) && sameGroups(value, part(s_.shown, *seen))) continue;
    result_.insert(result_.end(), value.begin(), value.end());
  }
}

std::size_t SectionMerger::rankOf(int code) const {
  if (!s_.format) return kNoRank;
  const std::string_view wanted = s_.mark == "AcDbMInsertBlock" ? "AcDbBlockReference" : s_.mark;
  for (std::size_t i = 0; i < s_.format->fields.size(); ++i) {
    const Field& field = s_.format->fields[i];
    if (field.code == code && (s_.mark.empty() || field.subclass.substr(0, field.subclass.find('#')) == wanted))
      return i;
  }
  return kNoRank;
}

}  // namespace atelier
