// What is particular to some sections: data, entries, the two forms of a spline, the structure of a hatch.
// The others are merged group by group.
#include "atelier/database/lists/merged_section.h"

#include <algorithm>
#include <utility>

#include "atelier/database/lists/merged_polyline.h"
#include "atelier/database/lists/section_merger.h"

namespace atelier {
namespace {

using Groups = std::vector<Group>;

Groups mergedGenerally(const SectionMerge& section, const std::set<int>& alsoLists) {
  SectionMerger merge(section);
  std::set<int> lists = merge.repeated();
  lists.insert(alsoLists.begin(), alsoLists.end());
  const bool whole = std::ranges::includes(codesOf(section.given), codesOf(section.shown));
  const Groups given = listOf(section.given, lists);
  if (whole && !given.empty() && !sameGroups(given, listOf(section.shown, lists))) {
    merge.takeGiven();
    return merge.take();
  }
  merge.single(lists);
  merge.list(lists);
  return merge.take();
}

// The data of an XRECORD are one list; the cloning flag may stand before them.
Groups mergedData(const SectionMerge& s) {
  constexpr int kCloning = 280;
  const auto flagged = [](const Groups& groups) { return !groups.empty() && groups.front().code() == kCloning; };
  const auto data = [&](const Groups& groups) {
    return Groups(groups.begin() + (flagged(groups) && flagged(s.shown) ? 1 : 0), groups.end());
  };
  Groups given = data(s.given);
  if (given.empty() || sameGroups(given, data(s.shown))) given = data(s.stored);
  if (flagged(s.given) && flagged(s.shown)) given.insert(given.begin(), s.given.front());
  else if (flagged(s.stored)) given.insert(given.begin(), s.stored.front());
  return given;
}

// Entries that the list leaves out stay: the objects would be lost with them.
Groups mergedEntries(const SectionMerge& s) {
  const std::set<int> entry{3, 350, 360};
  Groups given = listOf(s.given, entry);
  const Groups shown = listOf(s.shown, entry);
  for (std::size_t i = 0; i + 1 < shown.size() && !given.empty(); i += 2) {
    const auto owned = [&](const Group& g) { return g.code() != 3 && g.handle() == shown[i + 1].handle(); };
    if (std::ranges::none_of(given, owned)) given.insert(given.end(), {shown[i], shown[i + 1]});
  }
  SectionMerger merge(s);
  merge.single(entry);
  if (!given.empty() && !sameGroups(given, shown)) merge.replace(entry, given);
  return merge.take();
}

// Control points and fit points both tell the curve: those that the list changes count, and the others go.
Groups mergedSpline(const SectionMerge& s) {
  const std::set<int> counts{72, 73, 74}, fit{11}, ends{12, 13}, control{40, 41, 10};
  const auto changed = [&](const std::set<int>& codes) {
    const Groups given = listOf(s.given, codes);
    return !given.empty() && !sameGroups(given, listOf(s.shown, codes));
  };
  const bool byControl = changed({40}) || changed({41}) || changed({10});
  const bool byFit = !byControl && changed(fit) && !listOf(s.shown, fit).empty();
  const bool fitted = listOf(s.stored, {10}).empty();
  SectionMerger merge(s);
  std::set<int> others{72, 73, 74, 40, 41, 10, 11};
  if (fitted && !byControl) others.insert(71);
  merge.single(others);
  if (byControl) {
    // The interpolated curve may have another degree than its fit points' record.
    if (const Groups degree = listOf(s.given, {71}); fitted && !degree.empty()) merge.set({degree.front()});
    for (const int code : control)
      if (const Groups given = listOf(s.given, {code}); !given.empty()) merge.replace({code}, given);
    for (const int code : {11, 12, 13}) merge.replace({code}, {});
  } else if (changed(fit)) {
    if (byFit)
      for (const int code : control) merge.replace({code}, {});
    merge.list(fit);
  }
  Groups result = merge.take();
  const auto count = [&](int code) { return std::ranges::count(result, code, &Group::code); };
  for (Group& group : result) {
    constexpr int kCounted[] = {40, 10, 11};
    if (group.code() >= 72 && group.code() <= 74)
      if (const auto number = count(kCounted[group.code() - 72]); group.integer() != number)
        group = Group::integer(group.code(), number);
  }
  return result;
}

// Loops, pattern lines and seeds are a structure that is given as a whole, its properties one by one.
Groups mergedHatch(const SectionMerge& s) {
  const std::set<int> properties{2, 70, 71, 75, 76, 52, 41, 77, 47, 210};
  const auto structure = [&](const Groups& groups) {
    Groups rest;
    bool elevation = false;
    for (const Item& item : itemsOf(groups, 0, groups.size())) {
      const int code = groups[item.begin].code();
      const bool first = code == 10 && !std::exchange(elevation, true);
      if (!first && !properties.contains(code))
        for (std::size_t i = item.begin; i < item.end; ++i) rest.push_back(groups[i]);
    }
    return rest;
  };
  constexpr int kLoops = 91;
  SectionMerger merge(s);
  const Groups given = structure(s.given);
  if (std::ranges::find(given, kLoops, &Group::code) != given.end() && !sameGroups(given, structure(s.shown))) {
    merge.takeGiven();
    return merge.take();
  }
  std::set<int> others = codesOf(given);
  for (const int code : properties) others.erase(code);
  const auto elevation = std::ranges::count(s.given, 10, &Group::code);
  if (elevation == 1) others.erase(10);
  merge.single(others);
  return merge.take();
}

}  // namespace

Groups mergedGroups(const SectionMerge& section) { return mergedGenerally(section, {}); }

Groups mergedSection(const SectionMerge& section) {
  if (section.mark == "AcDbXrecord") return mergedData(section);
  if (section.mark == "AcDbDictionary") return mergedEntries(section);
  if (section.mark == "AcDbPolyline") return mergedPolyline(section);
  if (section.mark == "AcDbSpline") return mergedSpline(section);
  if (section.mark == "AcDbHatch") return mergedHatch(section);
  if (section.mark == "AcDbMText") return mergedGenerally(section, {1, 3});
  return mergedGroups(section);
}

}  // namespace atelier
