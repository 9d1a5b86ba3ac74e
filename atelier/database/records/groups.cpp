// Finds the groups of a record that are data of the entity itself.
#include "atelier/database/records/groups.h"

#include <numbers>

namespace atelier {

namespace {

constexpr int kBraces = 102, kEmbedded = 101, kFirstXdata = 1000, kApplication = 1001;

}  // namespace

Groups::Groups(const Record& record) {
  bool inside = false;
  groups_.reserve(record.groups.size());
  for (const Group& group : record.groups) {
    if (group.code() >= kFirstXdata || group.code() == kEmbedded) break;
    if (group.code() == kBraces) inside = group.text().starts_with('{');
    else if (!inside) groups_.push_back(&group);
  }
}

const Group* Groups::find(int code) const {
  for (const Group* group : groups_)
    if (group->code() == code) return group;
  return nullptr;
}

double Groups::real(int code, double missing) const {
  const Group* group = find(code);
  return group ? group->real() : missing;
}

std::int64_t Groups::integer(int code, std::int64_t missing) const {
  const Group* group = find(code);
  return group ? group->integer() : missing;
}

std::string_view Groups::text(int code, std::string_view missing) const {
  const Group* group = find(code);
  return group ? std::string_view(group->text()) : missing;
}

AcGePoint3d Groups::point(int code) const { return {real(code), real(code + 10), real(code + 20)}; }

AcGeVector3d Groups::normal() const {
  const AcGeVector3d n = point(210).asVector();
  return n.length() > 0 ? n : AcGeVector3d(0, 0, 1);
}

double Groups::radians(int code) const { return real(code) * std::numbers::pi / 180; }

std::vector<double> Groups::reals(int code) const {
  std::vector<double> out;
  for (const Group* group : groups_)
    if (group->code() == code) out.push_back(group->real());
  return out;
}

std::vector<AcGePoint3d> Groups::points(int code) const {
  std::vector<AcGePoint3d> out;
  for (const Group* group : groups_) {
    if (group->code() == code) out.emplace_back(group->real(), 0, 0);
    else if (group->code() == code + 10 && !out.empty()) out.back().y = group->real();
    else if (group->code() == code + 20 && !out.empty()) out.back().z = group->real();
  }
  return out;
}

std::span<const Group> xdataOf(const Record& record, std::string_view name) {
  const std::span all(record.groups);
  for (std::size_t i = record.xdataStart(); i < all.size(); ++i) {
    if (all[i].code() != kApplication || all[i].text() != name) continue;
    std::size_t end = i + 1;
    while (end < all.size() && all[end].code() != kApplication) ++end;
    return all.subspan(i + 1, end - i - 1);
  }
  return {};
}

}  // namespace atelier
