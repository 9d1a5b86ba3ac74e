// LWPOLYLINE to POLYLINE.
// Reference: DXF reference, LWPOLYLINE and POLYLINE; a constant width becomes the default width of all vertices.
#include "atelier/dxf/versions/flat_polyline.h"

#include <algorithm>

#include "atelier/database/records/flags.h"

namespace atelier::dxf {
namespace {

constexpr std::string_view kSection = "AcDbPolyline";

// Properties that every record of the run carries.
std::vector<Group> properties(const Record& record) {
  std::vector<Group> list;
  for (const Group& group : record.groups) {
    if (group.code() == 100 && group.text() == kSection) break;
    const int code = group.code();
    if (code == 8 || code == 6 || code == 62 || code == 67) list.push_back(group);
  }
  return list;
}

void append(std::vector<Group>& to, const std::vector<Group>& from) { to.insert(to.end(), from.begin(), from.end()); }

}  // namespace

std::vector<Group> asOldPolyline(const Record& record) {
  const std::vector<Group> common = properties(record);
  const double elevation = record.real(realField(kSection, 38)), width = record.real(realField(kSection, 43));
  std::vector<Group> out = {Group::text(0, "POLYLINE"), Group::handle(5, record.objectHandle())};
  append(out, common);
  append(out, {Group::integer(66, 1), Group::real(10, 0), Group::real(20, 0), Group::real(30, elevation),
               Group::integer(70, record.integer(integerField(kSection, 70)) &
                                      (PolylineFlags::kClosed | PolylineFlags::kRunsThrough))});
  if (width != 0) append(out, {Group::real(40, width), Group::real(41, width)});
  for (const Group& group : record.groups)
    if (group.code() == 39 || group.code() == 210 || group.code() == 220 || group.code() == 230) out.push_back(group);
  append(out, std::vector<Group>(record.groups.begin() + static_cast<std::ptrdiff_t>(record.xdataStart()),
                                 record.groups.end()));
  const auto [begin, end] = record.section(kSection);
  for (std::size_t i = begin; begin != Record::npos && i < end; ++i) {
    const int code = record.groups[i].code();
    if (code == 10) {
      out.push_back(Group::text(0, "VERTEX"));
      append(out, common);
      out.push_back(record.groups[i]);
    } else if (code == 20) {
      append(out, {record.groups[i], Group::real(30, elevation)});
    } else if (code == 40 || code == 41 || code == 42) {
      out.push_back(record.groups[i]);
    }
  }
  out.push_back(Group::text(0, "SEQEND"));
  append(out, common);
  return out;
}

}  // namespace atelier::dxf
