// Three records side by side, section by section: what is stored, what lists show of it, and what the list says.
#include "atelier/database/lists/merged_record.h"

#include <algorithm>
#include <span>

#include "atelier/database/lists/list_groups.h"
#include "atelier/database/lists/merged_section.h"
#include "atelier/database/lists/shown_groups.h"

namespace atelier {
namespace {

constexpr int kMark = 100, kEmbedded = 101, kBrace = 102, kOwner = 330, kApplication = 1001;

struct Section {
  std::string_view mark;  // empty: the head; "101": the embedded object
  std::span<const Group> groups;
};

std::vector<Section> sectionsOf(std::span<const Group> groups) {
  std::vector<Section> sections(1);
  std::size_t begin = 0, end = 0;
  const auto close = [&] { sections.back().groups = groups.subspan(begin, end - begin); };
  for (; end < groups.size() && groups[end].code() != kApplication; ++end) {
    const Group& group = groups[end];
    if (sections.back().mark == "101" || (group.code() != kMark && group.code() != kEmbedded)) continue;
    close();
    sections.push_back({group.code() == kMark ? std::string_view(group.text()) : "101", {}});
    begin = group.code() == kMark ? end + 1 : end;
  }
  close();
  return sections;
}

// Sorts the groups of a list into the sections of a record.
class Sorter {
 public:
  Sorter(const std::vector<Section>& sections, const RecordFormat* format, bool entity)
      : sections_(sections), format_(format), entity_(entity), sorted_(sections.size()) {
    if (!format_) return;
    // Fields of a section stand side by side: each is looked up once.
    std::string_view last;
    std::size_t place = kLoose;
    for (const Field& field : format_->fields) {
      if (homes_.empty() || field.subclass != last) place = sectionOf(last = field.subclass);
      homes_.push_back(place);
    }
  }

  std::vector<std::vector<Group>> sort(const std::vector<Group>& given) {
    std::vector<std::string_view> marks;
    std::size_t current = kLoose;
    bool head = true;
    const auto application = std::ranges::find(given, kApplication, &Group::code);
    const auto end = static_cast<std::size_t>(application - given.begin());
    for (const Item& item : itemsOf(given, 0, end)) {
      const Group& group = given[item.begin];
      const int code = group.code();
      if (current != kLoose && sections_[current].mark == "101") {
        add(current, given, item);
        continue;
      }
      if (code == kMark) {
        head = false;
        const std::string_view mark = marks.emplace_back(group.text());
        current = place(mark, static_cast<int>(std::ranges::count_if(
                                  marks, [&](std::string_view other) { return equalNoCase(other, mark); })));
        continue;
      }
      if (code == kEmbedded) {
        const std::size_t embedded = place("101", 1);
        if (embedded == kLoose) break;
        add(current = embedded, given, item);
        continue;
      }
      if (head && (isHead(group) || braces_)) {
        if (code == kBrace) braces_ = group.text().starts_with('{');
        continue;
      }
      if (isIdentity(group) || (entity_ && (code == 67 || code == 410))) continue;
      add(current == kLoose || !belongs(current, code) ? home(code) : current, given, item);
    }
    return std::move(sorted_);
  }

 private:
  static constexpr std::size_t kLoose = static_cast<std::size_t>(-1);

  static bool isHead(const Group& group) {
    return group.code() == 0 || group.code() == kBrace || group.code() == kOwner || isIdentity(group);
  }
  void add(std::size_t section, const std::vector<Group>& given, const Item& item) {
    auto& groups = sorted_[section];
    if (groups.empty()) groups.reserve(sections_[section].groups.size() + 4);
    groups.insert(groups.end(), given.begin() + static_cast<std::ptrdiff_t>(item.begin),
                  given.begin() + static_cast<std::ptrdiff_t>(item.end));
  }
  std::size_t place(std::string_view mark, int turn) const {
    for (std::size_t i = 1; i < sections_.size(); ++i)
      if (equalNoCase(sections_[i].mark, mark) && --turn == 0) return i;
    return kLoose;
  }
  bool shows(std::size_t section, int code) const {
    return std::ranges::find(sections_[section].groups, code, &Group::code) != sections_[section].groups.end();
  }
  // Whether a section has a place for the group; it has when no other does.
  bool belongs(std::size_t section, int code) const {
    if (!format_ || shows(section, code)) return true;
    bool elsewhere = false;
    for (std::size_t i = 0; i < homes_.size(); ++i) {
      if (format_->fields[i].code != code) continue;
      if (homes_[i] == section) return true;
      elsewhere |= homes_[i] != kLoose;
    }
    return !elsewhere;
  }
  std::size_t sectionOf(std::string_view subclass) const {
    const std::size_t hash = subclass.find('#');
    return place(subclass.substr(0, hash), hash == std::string_view::npos ? 1 : subclass[hash + 1] - '0');
  }
  // The section for a group that stands behind no mark: that of the format, else the last that has its code.
  std::size_t home(int code) const {
    for (std::size_t i = 0; i < homes_.size(); ++i)
      if (format_->fields[i].code == code && homes_[i] != kLoose) return homes_[i];
    std::size_t last = sections_.size() - 1;
    if (sections_[last].mark == "101") --last;
    for (std::size_t i = last + 1; i-- > 1;)
      if (shows(i, code)) return i;
    return last;
  }

  const std::vector<Section>& sections_;
  const RecordFormat* format_;
  bool entity_;
  bool braces_ = false;
  std::vector<std::size_t> homes_;  // of each field of the format its section
  std::vector<std::vector<Group>> sorted_;
};

// A section with the list's groups in it. Most lists come back with one value changed: the other sections stay.
std::vector<Group> sectionAfter(const Section& stored, const Section& shown, const std::vector<Group>& given,
                                const RecordFormat* format) {
  const auto copy = [](std::span<const Group> groups) { return std::vector<Group>(groups.begin(), groups.end()); };
  const bool asShown =
      std::ranges::equal(given, shown.groups, [](const Group& a, const Group& b) { return a.sameValue(b); });
  if (given.empty() || asShown) return copy(stored.groups);
  return mergedSection({stored.mark, format, copy(stored.groups), copy(shown.groups), given});
}

// Lists in braces that the given list has, in its head, replace those of the record.
void takeBraces(Record& record, const std::vector<Group>& given) {
  for (std::size_t i = 0; i < given.size() && given[i].code() != kMark && given[i].code() != kApplication; ++i) {
    if (given[i].code() != kBrace || !given[i].text().starts_with('{')) continue;
    std::size_t end = i + 1;
    while (end < given.size() && given[end].code() != kBrace) ++end;
    const auto first = given.begin() + static_cast<std::ptrdiff_t>(i + 1);
    const auto last = given.begin() + static_cast<std::ptrdiff_t>(end);
    auto& groups = record.groups;
    if (const auto bounds = record.braces(std::string_view(given[i].text()).substr(1))) {
      const auto at = groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(bounds->first),
                                   groups.begin() + static_cast<std::ptrdiff_t>(bounds->second));
      groups.insert(at, first, last);
    } else {
      std::vector<Group> added{given[i]};
      added.insert(added.end(), first, last);
      added.push_back(Group::text(kBrace, "}"));
      std::size_t place = 1;
      while (place < groups.size() && isIdentity(groups[place])) ++place;
      groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(place), added.begin(), added.end());
    }
    i = end;
  }
}

}  // namespace

Record mergedRecord(AcDbStub& stub, const std::vector<Group>& given) {
  const Record& before = AcDbImpObject::of(&stub.database->object(stub)).settled();
  const RecordFormat* format = formatOf(before.type());
  const std::vector<Group> asShown = shownGroups(stub).copies();
  const std::vector<Section> stored = sectionsOf(before.groups), shown = sectionsOf(asShown);
  const auto sorted = Sorter(shown, format, stub.is(AcDbStub::kEntity)).sort(given);
  Record after;
  after.groups.reserve(before.groups.size() + 4);
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (i > 0 && stored[i].mark != "101") after.groups.push_back(Group::text(kMark, std::string(stored[i].mark)));
    // Without marks (R12) the head holds everything.
    if (i == 0 && stored.size() > 1) {
      after.groups.insert(after.groups.end(), stored[i].groups.begin(), stored[i].groups.end());
      continue;
    }
    const auto merged = sectionAfter(stored[i], shown[i], sorted[i], format);
    after.groups.insert(after.groups.end(), merged.begin(), merged.end());
  }
  takeBraces(after, given);
  return after;
}

}  // namespace atelier
