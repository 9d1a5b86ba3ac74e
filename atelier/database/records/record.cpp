// Finding, reading and writing the groups of a record by section and code.
// A section runs from a subclass mark (100) to the next; the groups before the first mark are the head.
#include "atelier/database/records/record.h"

#include <algorithm>

namespace atelier {
namespace {

constexpr int kMark = 100;
constexpr int kEmbedded = 101;  // an object within the record, up to the extended data, with codes of its own
constexpr int kBrace = 102;
constexpr int kFirstExtended = 1000, kApplication = 1001;

// "AcDbText#2" is the second section called AcDbText.
// An insert of an array has a mark of its own before the same groups.
bool marks(const Group& mark, std::string_view section) {
  return mark.text() == section || (section == "AcDbBlockReference" && mark.text() == "AcDbMInsertBlock");
}

std::pair<std::string_view, int> nameAndTurn(std::string_view subclass) {
  const std::size_t hash = subclass.find('#');
  if (hash == std::string_view::npos) return {subclass, 1};
  return {subclass.substr(0, hash), subclass[hash + 1] - '0'};
}

AcGePoint3d defaultPoint(const Field& field) {
  return {field.text == "x" ? 1.0 : 0.0, 0.0, field.text == "z" ? 1.0 : 0.0};
}

bool isPoint(const Field& field) { return field.kind == FieldKind::point2 || field.kind == FieldKind::point3; }

// Index after the brace list that opens at `at`.
std::size_t afterBraces(const std::vector<Group>& groups, std::size_t at) {
  for (std::size_t i = at + 1; i < groups.size(); ++i)
    if (groups[i].code() == kBrace && groups[i].text().starts_with('}')) return i + 1;
  return groups.size();
}

bool opensBraces(const Group& group) { return group.code() == kBrace && group.text().starts_with('{'); }

}  // namespace

void appendDefault(std::vector<Group>& groups, const Field& field) {
  switch (field.kind) {
    case FieldKind::real: groups.push_back(Group::real(field.code, field.number)); break;
    case FieldKind::integer:
      groups.push_back(Group::integer(field.code, static_cast<std::int64_t>(field.number)));
      break;
    case FieldKind::text: groups.push_back(Group::text(field.code, std::string(field.text))); break;
    case FieldKind::handle: groups.push_back(Group::handle(field.code, 0)); break;
    default: {
      const AcGePoint3d p = defaultPoint(field);
      groups.push_back(Group::real(field.code, p.x));
      groups.push_back(Group::real(field.code + 10, p.y));
      if (field.kind == FieldKind::point3) groups.push_back(Group::real(field.code + 20, p.z));
    }
  }
}

Record Record::fresh(std::string_view type) {
  Record record;
  record.groups.push_back(Group::text(0, std::string(type)));
  const RecordFormat* format = formatOf(type);
  if (!format) return record;
  for (const std::string_view mark : format->subclasses) {
    record.groups.push_back(Group::text(kMark, std::string(nameAndTurn(mark).first)));
    for (const Field& field : format->fields) {
      if (field.subclass != mark || field.presence != Presence::always) continue;
      appendDefault(record.groups, field);
    }
  }
  return record;
}

std::string_view Record::type() const {
  return groups.empty() || groups.front().code() != 0 ? std::string_view() : groups.front().text();
}

std::size_t Record::find(const Field& field) const {
  const auto [wanted, turn] = nameAndTurn(field.subclass);
  std::size_t fallback = npos;
  bool marked = false;
  bool inside = wanted.empty();
  int seen = 0;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const Group& group = groups[i];
    const int code = group.code();
    if (code == kApplication || code == kEmbedded) break;
    if (code == kBrace && opensBraces(group)) {
      i = afterBraces(groups, i) - 1;
    } else if (code == kMark) {
      marked = true;
      if (inside && !wanted.empty() && seen >= turn) return npos;
      inside = !wanted.empty() && marks(group, wanted) && ++seen == turn;
    } else if (code == field.code) {
      if (inside) return i;
      if (!marked && fallback == npos && i > 0) fallback = i;
    }
  }
  return marked ? npos : fallback;
}

const Group* Record::get(const Field& field) const {
  const std::size_t i = find(field);
  return i == npos ? nullptr : &groups[i];
}

double Record::real(const Field& field) const {
  const Group* group = get(field);
  return group ? group->real() : field.number;
}

std::int64_t Record::integer(const Field& field) const {
  const Group* group = get(field);
  return group ? group->integer() : static_cast<std::int64_t>(field.number);
}

std::string Record::text(const Field& field) const {
  const Group* group = get(field);
  return group ? group->text() : std::string(field.text);
}

std::uint64_t Record::handle(const Field& field) const {
  const Group* group = get(field);
  return group ? group->handle() : 0;
}

AcGePoint3d Record::point(const Field& field) const {
  const std::size_t i = find(field);
  if (i == npos) return defaultPoint(field);
  AcGePoint3d p(groups[i].real(), 0, 0);
  if (i + 1 < groups.size() && groups[i + 1].code() == field.code + 10) p.y = groups[i + 1].real();
  if (i + 2 < groups.size() && groups[i + 2].code() == field.code + 20) p.z = groups[i + 2].real();
  return p;
}

std::pair<std::size_t, std::size_t> Record::section(std::string_view subclass) const {
  const auto [wanted, turn] = nameAndTurn(subclass);
  int seen = 0;
  for (std::size_t i = 0; i < groups.size() && groups[i].code() != kApplication; ++i) {
    if (groups[i].code() != kMark || !marks(groups[i], wanted) || ++seen != turn) continue;
    std::size_t end = i + 1;
    while (end < groups.size() && groups[end].code() != kMark && groups[end].code() != kEmbedded &&
           groups[end].code() != kApplication)
      ++end;
    return {i + 1, end};
  }
  return {npos, npos};
}

std::optional<std::pair<std::size_t, std::size_t>> Record::braces(std::string_view name) const {
  for (std::size_t i = 0; i < groups.size() && groups[i].code() != kApplication; ++i)
    if (opensBraces(groups[i]) && std::string_view(groups[i].text()).substr(1) == name) {
      const std::size_t end = afterBraces(groups, i);
      return std::pair(i + 1, std::max(i + 1, end - 1));
    }
  return std::nullopt;
}

std::size_t Record::xdataStart() const {
  // XDATA stands last; records without any are told by their last group.
  if (groups.empty() || groups.back().code() < kFirstExtended) return groups.size();
  std::size_t i = groups.size();
  while (i > 0 && groups[i - 1].code() >= kFirstExtended) --i;
  while (i < groups.size() && groups[i].code() != kApplication) ++i;
  return i;
}

std::size_t Record::headEnd() const {
  std::size_t i = 0;
  while (i < groups.size() && groups[i].code() != kMark && groups[i].code() != kApplication) ++i;
  return i;
}

std::size_t Record::placeFor(const Field& field) const {
  const RecordFormat* format = formatOf(type());
  auto [begin, end] = section(field.subclass);
  if (begin == npos) begin = 1, end = xdataStart();
  if (!format) return end;
  const auto& fields = format->fields;
  const auto rank = std::find_if(fields.begin(), fields.end(),
                                 [&](const Field& f) { return f.subclass == field.subclass && f.code == field.code; });
  // Before the first group that a later field of the same section owns.
  for (auto later = rank == fields.end() ? rank : rank + 1; later != fields.end(); ++later) {
    if (later->subclass != field.subclass) continue;
    const std::size_t i = find(*later);
    if (i != npos) return i;
  }
  return end;
}

void Record::put(const Field& field, Group group) {
  const std::size_t i = find(field);
  if (i != npos) {
    if (!groups[i].sameValue(group)) groups[i] = std::move(group);
    return;
  }
  const auto [name, turn] = nameAndTurn(field.subclass);
  const bool marked = headEnd() < xdataStart();
  if (!name.empty() && marked && section(field.subclass).first == npos)
    groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(xdataStart()), Group::text(kMark, std::string(name)));
  groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(placeFor(field)), std::move(group));
}

void Record::setReal(const Field& field, double value) { put(field, Group::real(field.code, value)); }
void Record::setInteger(const Field& field, std::int64_t value) { put(field, Group::integer(field.code, value)); }
void Record::setText(const Field& field, std::string_view utf8) {
  put(field, Group::text(field.code, std::string(utf8)));
}
void Record::setHandle(const Field& field, std::uint64_t value) { put(field, Group::handle(field.code, value)); }

void Record::setPoint(const Field& field, const AcGePoint3d& value) {
  put(field, Group::real(field.code, value.x));
  std::size_t i = find(field) + 1;
  const auto ordinate = [&](int code, double v, bool required) {
    if (i < groups.size() && groups[i].code() == code) {
      if (!groups[i].sameValue(Group::real(code, v))) groups[i] = Group::real(code, v);
    } else if (required) {
      groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(i), Group::real(code, v));
    }
    ++i;
  };
  ordinate(field.code + 10, value.y, true);
  ordinate(field.code + 20, value.z, field.kind == FieldKind::point3);
}

void Record::remove(const Field& field) {
  const std::size_t i = find(field);
  if (i == npos) return;
  std::size_t end = i + 1;
  if (isPoint(field))
    while (end < groups.size() && end < i + 3 && groups[end].code() == field.code + 10 * static_cast<int>(end - i))
      ++end;
  groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(i), groups.begin() + static_cast<std::ptrdiff_t>(end));
}

std::uint64_t Record::objectHandle() const {
  for (std::size_t i = 1; i < groups.size() && groups[i].code() != kMark && groups[i].code() != kApplication; ++i) {
    if (groups[i].code() == kBrace && opensBraces(groups[i])) i = afterBraces(groups, i) - 1;
    else if (groups[i].code() == 5 || groups[i].code() == 105) return groups[i].handle();
  }
  return 0;
}

void Record::setObjectHandle(std::uint64_t handle) {
  const int code = type() == "DIMSTYLE" ? 105 : 5;
  for (std::size_t i = 1; i < headEnd(); ++i)
    if (groups[i].code() == code) {
      groups[i] = Group::handle(code, handle);
      return;
    }
  groups.insert(groups.begin() + 1, Group::handle(code, handle));
}

std::uint64_t Record::owner() const {
  for (std::size_t i = 1; i < groups.size() && groups[i].code() != kMark && groups[i].code() != kApplication; ++i) {
    if (groups[i].code() == kBrace && opensBraces(groups[i])) i = afterBraces(groups, i) - 1;
    else if (groups[i].code() == 330) return groups[i].handle();
  }
  return 0;
}

void Record::setOwner(std::uint64_t handle) {
  const std::size_t end = headEnd();
  std::size_t place = 1;
  for (std::size_t i = 1; i < end; ++i) {
    if (groups[i].code() == kBrace && opensBraces(groups[i])) {
      i = afterBraces(groups, i) - 1;
      place = i + 1;
    } else if (groups[i].code() == 330) {
      if (groups[i].handle() != handle) groups[i] = Group::handle(330, handle);
      return;
    } else if (groups[i].code() == 5 || groups[i].code() == 105) {
      place = i + 1;
    }
  }
  groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(std::min(place, groups.size())),
                Group::handle(330, handle));
}

}  // namespace atelier
