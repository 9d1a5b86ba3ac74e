// VIEWPORT to the extended data of R12 and back.
// One table gives the order of the values there, and the group or the bits of the flags of each in later versions.
#include "atelier/dxf/versions/flat_viewport.h"

#include <algorithm>

namespace atelier::dxf {
namespace {

constexpr std::string_view kSection = "AcDbViewport";
constexpr int kFlags = 90;
constexpr std::int64_t kEedVersion = 16;  // of releases 11 and 12

enum class Kind { place, plane, real, integer, bits };
struct Item {
  Kind kind;
  int code;       // of bits: how many of them, as a mask
  int shift = 0;  // of bits: from which one on
};
constexpr Item kItems[] = {{Kind::place, 17},   {Kind::place, 16},   {Kind::real, 51},    {Kind::real, 45},
                           {Kind::plane, 12},   {Kind::real, 42},    {Kind::real, 43},    {Kind::real, 44},
                           {Kind::bits, 31, 0}, {Kind::integer, 72}, {Kind::bits, 1, 7},  {Kind::bits, 3, 5},
                           {Kind::bits, 1, 8},  {Kind::bits, 1, 9},  {Kind::bits, 1, 10}, {Kind::bits, 3, 12},
                           {Kind::real, 50},    {Kind::plane, 13},   {Kind::plane, 14},   {Kind::plane, 15},
                           {Kind::bits, 1, 11}};

using Groups = std::vector<Group>;

void append(Groups& to, std::initializer_list<Group> from) { to.insert(to.end(), from.begin(), from.end()); }

void appendItem(Groups& out, const Record& viewport, const Item& item) {
  const AcGePoint3d p = viewport.point(pointField(kSection, item.code));
  switch (item.kind) {
    case Kind::place: append(out, {Group::real(1010, p.x), Group::real(1020, p.y), Group::real(1030, p.z)}); break;
    case Kind::plane: append(out, {Group::real(1040, p.x), Group::real(1040, p.y)}); break;
    case Kind::real: append(out, {Group::real(1040, viewport.real(realField(kSection, item.code)))}); break;
    case Kind::integer: append(out, {Group::integer(1070, viewport.integer(integerField(kSection, item.code)))}); break;
    case Kind::bits:
      append(out, {Group::integer(1070, viewport.integer(integerField(kSection, kFlags)) >> item.shift & item.code)});
  }
}

bool isApplication(const Group& group, std::string_view name) { return group.code() == 1001 && group.text() == name; }

Groups withoutAcad(Groups::const_iterator from, Groups::const_iterator to) {
  Groups kept;
  bool acad = false;
  for (; from != to; ++from) {
    if (from->code() == 1001) acad = isApplication(*from, "ACAD");
    if (!acad) kept.push_back(*from);
  }
  return kept;
}

// --- back

struct View {
  std::int64_t flags = 0;
  Record values = Record({Group::text(0, "VIEWPORT")});
};

// Reads the values after MVIEW, as many as there are.
View viewOf(Groups::const_iterator at, Groups::const_iterator end) {
  View view;
  Groups& out = view.values.groups;
  const auto next = [&](int code) { return at != end && at->code() == code ? &*at++ : nullptr; };
  for (const Item& item : kItems) {
    if (item.kind == Kind::place || item.kind == Kind::plane) {
      const bool place = item.kind == Kind::place;
      const Group *x = next(place ? 1010 : 1040), *y = next(place ? 1020 : 1040), *z = place ? next(1030) : nullptr;
      if (!x || !y || (place && !z)) return view;
      append(out, {Group::real(item.code, x->real()), Group::real(item.code + 10, y->real())});
      if (place) append(out, {Group::real(item.code + 20, z->real())});
    } else if (item.kind == Kind::real) {
      const Group* value = next(1040);
      if (!value) return view;
      append(out, {Group::real(item.code, value->real())});
    } else {
      const Group* value = next(1070);
      if (!value) return view;
      if (item.kind == Kind::integer) append(out, {Group::integer(item.code, value->integer())});
      else view.flags |= (value->integer() & item.code) << item.shift;
    }
  }
  return view;
}

}  // namespace

Groups asOldViewport(const Record& viewport, const std::vector<std::string>& frozen) {
  Groups out;
  for (const Group& group : viewport.groups) {
    if (group.code() == 100 && group.text() == kSection) break;
    const int code = group.code();
    if (code == 0 || code == 5 || code == 8 || code == 6 || code == 62 || code == 67) out.push_back(group);
  }
  const AcGePoint3d centre = viewport.point(pointField(kSection, 10));
  append(out, {Group::real(10, centre.x), Group::real(20, centre.y), Group::real(30, centre.z)});
  for (const int code : {40, 41}) out.push_back(Group::real(code, viewport.real(realField(kSection, code))));
  for (const int code : {68, 69})
    out.push_back(Group::integer(code, viewport.integer(integerField(kSection, code, 1))));
  append(out, {Group::text(1001, "ACAD"), Group::text(1000, "MVIEW"), Group::text(1002, "{"),
               Group::integer(1070, kEedVersion)});
  for (const Item& item : kItems) appendItem(out, viewport, item);
  out.push_back(Group::text(1002, "{"));
  for (const std::string& layer : frozen) out.push_back(Group::text(1003, layer));
  append(out, {Group::text(1002, "}"), Group::text(1002, "}")});
  const Groups own =
      withoutAcad(viewport.groups.begin() + static_cast<std::ptrdiff_t>(viewport.xdataStart()), viewport.groups.end());
  out.insert(out.end(), own.begin(), own.end());
  return out;
}

Groups asModernViewport(const Groups& old, const std::function<std::uint64_t(const std::string&)>& layerHandle) {
  const Record record(old);
  const auto data = old.begin() + static_cast<std::ptrdiff_t>(record.xdataStart());
  auto at = std::find_if(data, old.end(), [](const Group& g) { return isApplication(g, "ACAD"); });
  while (at != old.end() && at->code() != 1070) ++at;
  const View view = at == old.end() ? View() : viewOf(at + 1, old.end());
  Groups out;
  for (const Group& group : old)
    if (group.code() == 10 || group.code() == 20 || group.code() == 30 || group.code() == 40 || group.code() == 41 ||
        group.code() == 68 || group.code() == 69)
      out.push_back(group);
  const auto real = [&](int code, double otherwise) {
    out.push_back(Group::real(code, view.values.real(realField("", code, otherwise))));
  };
  for (const int code : {12, 13, 14, 15}) real(code, 0), real(code + 10, 0);
  for (const int code : {16, 17}) real(code, 0), real(code + 10, 0), real(code + 20, code == 16 ? 1 : 0);
  real(42, 50), real(43, 0), real(44, 0);
  real(45, record.real(realField("", 41)));
  real(50, 0), real(51, 0);
  out.push_back(Group::integer(72, view.values.integer(integerField("", 72, 100))));
  for (const Group& group : old)
    if (const std::uint64_t layer = group.code() == 1003 ? layerHandle(group.text()) : 0; layer != 0)
      out.push_back(Group::handle(331, layer));
  append(out, {Group::integer(kFlags, view.flags), Group::text(1, ""), Group::integer(281, 0), Group::integer(71, 0),
               Group::integer(74, 0)});
  const Groups own = withoutAcad(data, old.end());
  out.insert(out.end(), own.begin(), own.end());
  return out;
}

}  // namespace atelier::dxf
