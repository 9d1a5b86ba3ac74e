// Selection filters: operators and their nesting.
// Operands that can no longer change the result are skipped without looking at the entity.
#include <algorithm>

#include "atelier/database/objects/chain.h"
#include "atelier/selecting/filter_groups.h"
#include "atelier/selecting/selections.h"

namespace atelier {
namespace {

constexpr int kOperator = -4, kApplication = -3;

// "<AND" -> "AND>"; empty for an item that isn't an opening operator.
std::string closingOf(const SelectionFilter::Item& item) {
  if (item.code != kOperator) return {};
  const std::string word = upperCase(item.text);
  return word == "<AND" || word == "<OR" || word == "<XOR" || word == "<NOT" ? word.substr(1) + ">" : std::string();
}

bool closes(const SelectionFilter::Item& item, std::string_view closing) {
  return item.code == kOperator && upperCase(item.text) == closing;
}

std::string_view relationAt(std::string_view relations, int index) {
  for (; index > 0; --index) {
    const std::size_t comma = relations.find(',');
    if (comma == relations.npos) return "*";
    relations.remove_prefix(comma + 1);
  }
  return relations.substr(0, relations.find(','));
}

bool areRelations(std::string_view relations) {
  for (int i = 0; i < 3; ++i)
    if (!isRelation(relationAt(relations, i))) return false;
  return true;
}

// The number of ordinates of the point at this place, 0 when there is no point.
int ordinatesAt(const std::vector<SelectionFilter::Item>& items, std::size_t at) {
  const int code = items[at].code;
  if (!isPointCode(code) || items[at].group.kind() != GroupKind::real) return 0;
  int count = 1;
  while (count < 3 && at + static_cast<std::size_t>(count) < items.size() &&
         items[at + static_cast<std::size_t>(count)].code == code + 10 * count)
    ++count;
  return count;
}

bool pointFits(const AcGePoint3d& value, const std::vector<SelectionFilter::Item>& items, std::size_t at, int count,
               std::string_view relations) {
  for (int i = 0; i < count; ++i) {
    const std::string_view relation = relations.empty() ? relations : relationAt(relations, i);
    if (!numberFits(asDblArray(value)[i], items[at + static_cast<std::size_t>(i)].group.real(), relation)) return false;
  }
  return true;
}

}  // namespace

bool SelectionFilter::wellFormedUpTo(std::size_t& at, std::string_view closing, std::size_t& operands) const {
  for (operands = 0; at < items_.size(); ++operands) {
    if (!closing.empty() && closes(items_[at], closing)) {
      ++at;
      return true;
    }
    if (items_[at].code != kOperator) {
      at += static_cast<std::size_t>(std::max(1, ordinatesAt(items_, at)));
      continue;
    }
    const std::string inner = closingOf(items_[at]);
    if (inner.empty()) {
      // A relation must be followed by a group.
      if (!areRelations(items_[at].text) || at + 1 >= items_.size() || items_[at + 1].code < 0) return false;
      ++at;
      at += static_cast<std::size_t>(std::max(1, ordinatesAt(items_, at)));
      continue;
    }
    std::size_t count = 0;
    if (!wellFormedUpTo(++at, inner, count)) return false;
    if (count == 0 || (inner == "XOR>" && count != 2) || (inner == "NOT>" && count != 1)) return false;
  }
  return closing.empty();
}

bool SelectionFilter::isWellFormed() const {
  std::size_t at = 0, operands = 0;
  return wellFormedUpTo(at, {}, operands);
}

bool SelectionFilter::group(AcDbStub& stub, std::size_t& at, std::string_view relations, bool matters) const {
  const Item& item = items_[at];
  const int ordinates = ordinatesAt(items_, at);
  const std::size_t start = at;
  at += static_cast<std::size_t>(std::max(1, ordinates));
  if (!matters) return false;
  if (item.code == kApplication) return hasXdataOf(stub, item.text);
  if (item.code == 0) return groupFits(typeGroup(stub), item.group, relations);
  if (ordinates > 0) {
    const auto points = filterPoints(stub, item.code);
    return std::any_of(points.begin(), points.end(),
                       [&](const AcGePoint3d& p) { return pointFits(p, items_, start, ordinates, relations); });
  }
  const auto values = filterValues(stub, item.code);
  return std::any_of(values.begin(), values.end(),
                     [&](const Group& value) { return groupFits(value, item.group, relations); });
}

bool SelectionFilter::one(AcDbStub& stub, std::size_t& at, bool matters) const {
  const Item& item = items_[at];
  if (item.code != kOperator) return group(stub, at, {}, matters);
  const std::string closing = closingOf(item);
  ++at;
  if (closing.empty()) return group(stub, at, item.text, matters);
  bool result = closing == "AND>";
  while (!closes(items_[at], closing)) {
    const bool open = closing == "AND>" ? result : closing == "OR>" ? !result : true;
    const bool value = one(stub, at, matters && open);
    if (closing == "AND>") result = result && value;
    else if (closing == "OR>") result = result || value;
    else if (closing == "XOR>") result = result != value;
    else result = !value;
  }
  ++at;
  return result;
}

bool SelectionFilter::matches(AcDbStub& stub) const { return matchesFrom(stub, 0); }

bool SelectionFilter::matchesFrom(AcDbStub& stub, std::size_t at) const {
  while (at < items_.size())
    if (!one(stub, at, true)) return false;
  return true;
}

bool SelectionFilter::matchesAdmitted(AcDbStub& stub) const {
  std::size_t at = 0;
  while (at < items_.size() && items_[at].code == 0) ++at;
  return matchesFrom(stub, at);
}

bool SelectionFilter::admits(std::string_view type) const {
  for (const Item& item : items_) {
    if (item.code == kOperator) break;
    if (item.code == 0 && !groupFits(Group::text(0, std::string(type)), item.group, {})) return false;
  }
  return true;
}

}  // namespace atelier
