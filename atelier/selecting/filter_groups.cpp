// The values of an entity that a filter compares, and one comparison.
// Names are compared without regard to case, contents of texts with regard to it.
#include "atelier/selecting/filter_groups.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "atelier/database/objects/chain.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier {
namespace {

constexpr double kSameNumber = 1e-10;

const Record& recordOf(AcDbStub& stub) { return AcDbImpObject::of(&stub.database->object(stub)).settled(); }

std::string layoutName(const AcDbStub& stub) { return stub.owner ? layoutNameOf(*stub.owner) : std::string(); }

// Adds the format's default for a group that the record doesn't have.
void addDefault(std::vector<Group>& values, std::string_view type, int code) {
  const RecordFormat* format = formatOf(type);
  if (!format) return;
  const auto field =
      std::find_if(format->fields.begin(), format->fields.end(), [&](const Field& f) { return f.code == code; });
  if (field == format->fields.end()) return;
  appendDefault(values, *field);
}

bool isName(int code) {
  constexpr std::array kNames{0, 2, 3, 6, 7, 8, 100, 410, 1001};
  return std::find(kNames.begin(), kNames.end(), code) != kNames.end();
}

bool textFits(const std::string& value, const std::string& pattern, bool name) {
  return name ? lisp::matchesWildcard(upperCase(value), upperCase(pattern)) : lisp::matchesWildcard(value, pattern);
}

}  // namespace

Group typeGroup(const AcDbStub& stub) { return Group::text(0, std::string(stub.database->typeName(stub))); }

std::vector<Group> filterValues(AcDbStub& stub, int code) {
  if (code == 410) return {Group::text(410, layoutName(stub))};
  if (code == 67) return {Group::integer(67, stub.owner == stub.database->modelSpace() ? 0 : 1)};
  std::vector<Group> values;
  const Record& record = recordOf(stub);
  for (const Group& group : record.groups)
    if (group.code() == code) values.push_back(group);
  if (values.empty()) addDefault(values, record.type(), code);
  return values;
}

std::vector<AcGePoint3d> filterPoints(AcDbStub& stub, int code) {
  std::vector<AcGePoint3d> points;
  const std::vector<Group>& groups = recordOf(stub).groups;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code() != code) continue;
    AcGePoint3d p(groups[i].real(), 0, 0);
    if (i + 1 < groups.size() && groups[i + 1].code() == code + 10) p.y = groups[i + 1].real();
    if (i + 2 < groups.size() && groups[i + 2].code() == code + 20) p.z = groups[i + 2].real();
    points.push_back(p);
  }
  return points;
}

bool hasXdataOf(AcDbStub& stub, std::string_view applications) {
  if (!stub.database->mayHaveXdata(stub)) return false;
  const Record& record = recordOf(stub);
  const std::string wanted = upperCase(applications);
  return std::any_of(
      record.groups.begin() + static_cast<std::ptrdiff_t>(record.xdataStart()), record.groups.end(),
      [&](const Group& g) { return g.code() == 1001 && lisp::matchesWildcard(upperCase(g.text()), wanted); });
}

bool isRelation(std::string_view relation) {
  constexpr std::array<std::string_view, 11> kRelations{"", "*", "=", "/=", "!=", "<>", "<", "<=", ">", ">=", "&"};
  return relation == "&=" || std::find(kRelations.begin(), kRelations.end(), relation) != kRelations.end();
}

bool numberFits(double value, double wanted, std::string_view relation) {
  const bool same = std::abs(value - wanted) <= kSameNumber * std::max(1.0, std::abs(wanted));
  if (relation.empty() || relation == "=") return same;
  if (relation == "*") return true;
  if (relation == "/=" || relation == "!=" || relation == "<>") return !same;
  if (relation == "<") return value < wanted && !same;
  if (relation == "<=") return value < wanted || same;
  if (relation == ">") return value > wanted && !same;
  if (relation == ">=") return value > wanted || same;
  const auto bits = static_cast<std::int64_t>(value), mask = static_cast<std::int64_t>(wanted);
  return relation == "&" ? (bits & mask) != 0 : (bits & mask) == mask;
}

bool groupFits(const Group& value, const Group& wanted, std::string_view relation) {
  if (relation == "*") return true;
  const bool negated = relation == "/=" || relation == "!=" || relation == "<>";
  if (wanted.kind() == GroupKind::real || wanted.kind() == GroupKind::integer) {
    const bool number = value.kind() == GroupKind::real || value.kind() == GroupKind::integer;
    return number && numberFits(value.real(), wanted.real(), relation);
  }
  if (wanted.kind() == GroupKind::handle)
    return value.kind() == GroupKind::handle && (value.handle() == wanted.handle()) != negated;
  if (wanted.kind() == GroupKind::binary) return value.text() == wanted.text();
  return textFits(value.text(), wanted.text(), isName(wanted.code())) != negated;
}

}  // namespace atelier
