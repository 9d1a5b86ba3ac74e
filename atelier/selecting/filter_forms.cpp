// Filters from lists and chains.
// A point becomes an item for each ordinate, as it is in a record.
#include "atelier/selecting/filter_forms.h"

#include "atelier/database/objects/chain.h"
#include "atelier/document/groups_as_lists.h"

namespace atelier {
namespace {

using Items = std::vector<SelectionFilter::Item>;

void addGroups(Items& items, const std::vector<Group>& groups) {
  for (const Group& group : groups) items.push_back({group.code(), group, {}});
}

void addText(Items& items, int code, std::string_view text) {
  SelectionFilter::Item item;
  item.code = code;
  item.text = text;
  items.push_back(std::move(item));
}

bool addPair(Items& items, int code, lisp::Value value) {
  if (code == -4) {
    if (!value.isString()) return false;
    addText(items, code, value.text());
    return true;
  }
  if (code == -3) {
    for (const lisp::Value application : lisp::Items(value)) {
      const lisp::Value name = application.isPair() ? application.car() : application;
      if (!name.isString()) return false;
      addText(items, code, name.text());
    }
    return value.isPair();
  }
  std::vector<Group> groups;
  if (code < 0 || !appendGroup(groups, code, value)) return false;
  addGroups(items, groups);
  return true;
}

}  // namespace

SelectionFilter filterOfList(lisp::Interpreter& interpreter, lisp::Value list) {
  Items items;
  for (const lisp::Value pair : lisp::Items(list))
    if (!pair.isPair() || !pair.car().isInteger() || !addPair(items, pair.car().integer(), pair.cdr()))
      interpreter.fail("bad SSGET list");
  SelectionFilter filter(std::move(items));
  if (!filter.isWellFormed()) interpreter.fail("bad SSGET list");
  return filter;
}

std::optional<SelectionFilter> filterOfChain(const resbuf* chain, AcDbImpDatabase& database) {
  Items items;
  bool applications = false;
  for (const resbuf* node = chain; node; node = node->rbnext) {
    const int code = node->restype == RTDXF0 ? 0 : node->restype;
    if (code == -3) {
      applications = true;
    } else if (code == -4 || (applications && code == 1001)) {
      addText(items, code == -4 ? -4 : -3, stringOf(*node));
    } else if (code == 0) {
      items.push_back({0, Group::text(0, stringOf(*node)), {}});
    } else if (code > 0 && code < 5000) {
      std::vector<Group> groups;
      appendGroups(groups, *node, database);
      addGroups(items, groups);
    } else {
      return std::nullopt;
    }
  }
  SelectionFilter filter(std::move(items));
  return filter.isWellFormed() ? std::optional(std::move(filter)) : std::nullopt;
}

}  // namespace atelier
