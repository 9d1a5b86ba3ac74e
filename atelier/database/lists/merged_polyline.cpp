// Reads the vertices of the list and of what is shown; when they differ, all are written anew.
#include "atelier/database/lists/merged_polyline.h"

#include <algorithm>
#include <optional>

namespace atelier {
namespace {

constexpr int kConstantWidth = 43, kCount = 90;

struct Vertex {
  double x = 0, y = 0, start = 0, end = 0, bulge = 0;
  std::int64_t identifier = 0;
  bool operator==(const Vertex&) const = default;
};

bool isVertexCode(int code) {
  return code == 10 || code == 20 || code == 30 || code == 91 || (code >= 40 && code <= 42);
}

std::vector<Vertex> verticesOf(const std::vector<Group>& groups) {
  std::vector<Vertex> list;
  for (const Group& group : groups) {
    if (group.code() == 10) list.push_back({.x = group.real()});
    if (list.empty()) continue;
    switch (group.code()) {
      case 20: list.back().y = group.real(); break;
      case 40: list.back().start = group.real(); break;
      case 41: list.back().end = group.real(); break;
      case 42: list.back().bulge = group.real(); break;
      case 91: list.back().identifier = group.integer(); break;
      default: break;
    }
  }
  return list;
}

std::optional<double> realOf(const std::vector<Group>& groups, int code) {
  const auto it = std::ranges::find(groups, code, &Group::code);
  return it == groups.end() ? std::nullopt : std::optional(it->real());
}

void write(std::vector<Group>& groups, const Vertex& v, bool widths) {
  groups.insert(groups.end(), {Group::real(10, v.x), Group::real(20, v.y)});
  if (v.identifier != 0) groups.push_back(Group::integer(91, v.identifier));
  if (widths) groups.insert(groups.end(), {Group::real(40, v.start), Group::real(41, v.end)});
  if (v.bulge != 0) groups.push_back(Group::real(42, v.bulge));
}

}  // namespace

std::vector<Group> mergedPolyline(const SectionMerge& s) {
  // Properties first, as if the polyline had no vertices.
  const auto properties = [](std::vector<Group> groups) {
    std::erase_if(groups, [](const Group& g) { return isVertexCode(g.code()) || g.code() == kCount; });
    return groups;
  };
  const std::vector<Group> stored = properties(s.stored), shown = properties(s.shown), given = properties(s.given);
  std::vector<Group> head = mergedGroups({s.mark, s.format, stored, shown, given});

  std::vector<Vertex> now = verticesOf(s.shown), wanted = verticesOf(s.given);
  if (wanted.empty()) wanted = now;
  const auto shownWidth = realOf(s.shown, kConstantWidth), givenWidth = realOf(s.given, kConstantWidth);
  const bool widthChanged = givenWidth && (!shownWidth || *givenWidth != *shownWidth);
  if (wanted == now && !widthChanged) {
    // The vertices stay as they were written.
    std::vector<Group> result;
    const auto isOwn = [](const Group& g) { return isVertexCode(g.code()) || g.code() == kCount; };
    const auto first = std::ranges::find_if(s.stored, [](const Group& g) { return g.code() == 10; });
    const auto count = std::ranges::find(s.stored, kCount, &Group::code);
    if (count != s.stored.end()) result.push_back(*count);
    const auto normal = std::ranges::find(head, 210, &Group::code);
    result.insert(result.end(), head.begin(), normal);
    std::copy_if(first, s.stored.end(), std::back_inserter(result),
                 [&](const Group& g) { return isOwn(g) && g.code() != kCount; });
    result.insert(result.end(), normal, head.end());
    return result;
  }
  const double constant = widthChanged ? *givenWidth : shownWidth.value_or(0);
  const bool widths = !widthChanged && std::ranges::any_of(wanted, [&](const Vertex& v) {
    return v.start != constant || v.end != constant;
  });
  if (widths) std::erase_if(head, [](const Group& g) { return g.code() == kConstantWidth; });
  std::vector<Group> result{Group::integer(kCount, static_cast<std::int64_t>(wanted.size()))};
  const auto normal = std::ranges::find(head, 210, &Group::code);
  result.insert(result.end(), head.begin(), normal);
  for (const Vertex& v : wanted) write(result, v, widths);
  result.insert(result.end(), normal, head.end());
  return result;
}

}  // namespace atelier
