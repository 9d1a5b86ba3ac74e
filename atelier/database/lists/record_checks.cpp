// The format table says what is needed and what fits; curves with lists of points are counted.
#include "atelier/database/lists/record_checks.h"

#include <algorithm>

#include "atelier/database/lists/list_groups.h"

namespace atelier {
namespace {

bool marked(const Record& record) {
  return std::ranges::any_of(record.groups, [](const Group& g) { return g.code() == 100; });
}

// Groups of that code in the section; in a record without marks everywhere.
std::int64_t count(const Record& record, std::string_view mark, int code) {
  auto [begin, end] = record.section(mark);
  if (begin == Record::npos) begin = 0, end = marked(record) ? 0 : record.xdataStart();
  return std::count_if(record.groups.begin() + static_cast<std::ptrdiff_t>(begin),
                       record.groups.begin() + static_cast<std::ptrdiff_t>(end),
                       [code](const Group& g) { return g.code() == code; });
}

bool isSpline(const Record& record) {
  constexpr std::string_view kSpline = "AcDbSpline";
  const auto points = count(record, kSpline, 10), knots = count(record, kSpline, 40),
             weights = count(record, kSpline, 41), degree = record.integer(integerField(kSpline, 71, 3));
  if (points == 0) return count(record, kSpline, 11) >= 2;
  return points > degree && knots == points + degree + 1 && (weights == 0 || weights == points);
}

bool fieldCanBe(const Record& record, const Field& field, const Record* before) {
  if (field.kind != FieldKind::real && field.kind != FieldKind::integer) return true;
  const Group* group = record.get(field);
  if (!group || fits(field, *group)) return true;
  const Group* old = before ? before->get(field) : nullptr;
  return old && old->sameValue(*group);
}

}  // namespace

bool hasNeeded(const std::vector<Group>& given) {
  const RecordFormat* format = formatOf(textOf(given, 0));
  return !format || std::ranges::all_of(format->fields, [&](const Field& field) {
    return !field.needed || std::ranges::find(given, field.code, &Group::code) != given.end();
  });
}

bool canBe(const Record& record, const Record* before) {
  const RecordFormat* format = formatOf(record.type());
  if (!format) return true;
  if (!std::ranges::all_of(format->fields, [&](const Field& field) { return fieldCanBe(record, field, before); }))
    return false;
  if (record.type() == "LWPOLYLINE") return count(record, "AcDbPolyline", 10) > 0;
  return record.type() != "SPLINE" || isSpline(record) || (before && !isSpline(*before));
}

}  // namespace atelier
