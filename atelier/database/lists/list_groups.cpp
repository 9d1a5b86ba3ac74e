// Lists made into records.
// A list need not be complete: marks and groups that are always written are added from the format table.
#include "atelier/database/lists/list_groups.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/objects/chain.h"
#include "atelier/database/records/section_order.h"

namespace atelier {
namespace {

constexpr int kApplication = 1001;

bool isAngle(const Group& group) { return group.code() >= 50 && group.code() <= 58 && group.kind() == GroupKind::real; }

// A missing fourth corner is the third: a triangle.
void closeTriangle(Record& record, std::string_view mark) {
  const Field third = pointField(mark, 12), fourth = pointField(mark, 13);
  if (record.has(third) && !record.has(fourth)) record.setPoint(fourth, record.point(third));
}

}  // namespace

void anglesInRadians(GroupList& groups) {
  for (std::size_t i = 0; i < groups.size(); ++i)
    if (isAngle(groups[i]) && groups[i].real() != 0)
      groups.replace(i, Group::real(groups[i].code(), groups[i].real() * std::numbers::pi / 180));
}

void anglesInDegrees(std::vector<Group>& groups) {
  constexpr double kDigits = 1e10, kSame = 1e-12;
  for (Group& group : groups) {
    if (!isAngle(group)) continue;
    const double degrees = group.real() * 180 / std::numbers::pi, rounded = std::round(degrees * kDigits) / kDigits;
    const bool isRound = std::abs(degrees - rounded) <= kSame * std::max(1.0, std::abs(degrees));
    group = Group::real(group.code(), isRound ? rounded : degrees);
  }
}

std::string textOf(const std::vector<Group>& groups, int code) {
  const auto it = std::ranges::find(groups, code, &Group::code);
  return it == groups.end() ? std::string() : it->text();
}

std::vector<Item> itemsOf(const std::vector<Group>& groups, std::size_t begin, std::size_t end) {
  std::vector<Item> items;
  items.reserve(end - begin);
  for (std::size_t i = begin; i < end;) {
    const Item item{i, i + 1};
    const int code = groups[i].code();
    items.push_back(item);
    if (groups[i].kind() == GroupKind::real && isPointCode(code))
      for (int k = 1; k <= 2 && items.back().end < end && groups[items.back().end].code() == code + 10 * k; ++k)
        ++items.back().end;
    i = items.back().end;
  }
  return items;
}

Record arrangedRecord(const std::vector<Group>& given) {
  const std::string type = textOf(given, 0);
  const RecordFormat* format = formatOf(type);
  if (!format) return Record(given);
  Record record = Record::fresh(type);
  const auto application = std::ranges::find(given, kApplication, &Group::code);
  const auto own = static_cast<std::size_t>(application - given.begin());
  std::vector<Group> loose;
  for (const Item& item : itemsOf(given, 0, own)) {
    const Group& group = given[item.begin];
    if (group.code() == 0 || isIdentity(group)) continue;
    const auto field = std::ranges::find(format->fields, group.code(), &Field::code);
    if (field == format->fields.end() || std::ranges::count(given, group.code(), &Group::code) > 1) {
      loose.insert(loose.end(), given.begin() + static_cast<std::ptrdiff_t>(item.begin),
                   given.begin() + static_cast<std::ptrdiff_t>(item.end));
      continue;
    }
    const auto ordinate = [&](std::size_t k) { return item.begin + k < item.end ? given[item.begin + k].real() : 0.0; };
    switch (field->kind) {
      case FieldKind::text: record.setText(*field, group.text()); break;
      case FieldKind::real: record.setReal(*field, group.real()); break;
      case FieldKind::integer: record.setInteger(*field, group.integer()); break;
      case FieldKind::handle: record.setHandle(*field, group.handle()); break;
      default: record.setPoint(*field, {group.real(), ordinate(1), ordinate(2)});
    }
  }
  record.groups.insert(record.groups.end(), loose.begin(), loose.end());
  record.groups.insert(record.groups.end(), application, given.end());
  return record;
}

Record listedRecord(std::vector<Group> given) {
  anglesInDegrees(given);
  const bool marked = std::ranges::any_of(given, isMark);
  if (marked) std::erase_if(given, isIdentity);
  Record record = marked ? Record(std::move(given)) : arrangedRecord(given);
  const RecordFormat* format = formatOf(record.type());
  if (!format) return record;
  arrangeSections(record);
  for (const std::string_view mark : {"AcDbTrace", "AcDbFace"}) closeTriangle(record, mark);
  // Polylines and vertices come in two and three dimensions, with sections of their own: only those given are completed.
  const bool givenOnly = record.type() == "POLYLINE" || record.type() == "VERTEX";
  for (const Field& field : format->fields) {
    if (!marked || field.presence != Presence::always || record.has(field)) continue;
    if (givenOnly && record.section(field.subclass).first == Record::npos) continue;
    switch (field.kind) {
      case FieldKind::text: record.setText(field, field.text); break;
      case FieldKind::real: record.setReal(field, field.number); break;
      case FieldKind::integer: record.setInteger(field, static_cast<std::int64_t>(field.number)); break;
      case FieldKind::handle: break;
      default: record.setPoint(field, AcGePoint3d(field.text == "x" ? 1 : 0, 0, field.text == "z" ? 1 : 0)); break;
    }
  }
  return record;
}

}  // namespace atelier
