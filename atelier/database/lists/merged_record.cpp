// Three records side by side, section by section: what is stored, what lists show of it, and what the list says.
#include "atelier/database/lists/merged_record.h"

#include <algorithm>
#include <map>
#include <set>

#include "atelier/database/lists/list_groups.h"
#include "atelier/database/lists/merged_section.h"
#include "atelier/database/lists/shown_groups.h"

namespace atelier {
namespace {

constexpr int kMark = 100, kEmbedded = 101, kBrace = 102, kOwner = 330, kApplication = 1001;

struct Section {
  std::string mark;  // empty: the head; "101": the embedded object
  std::vector<Group> groups;
};

std::vector<Section> sectionsOf(const std::vector<Group>& groups) {
  std::vector<Section> sections(1);
  for (const Group& group : groups) {
    if (group.code() == kApplication) break;
    const bool embedded = sections.back().mark == "101";
    if (group.code() == kMark && !embedded) sections.push_back({group.text(), {}});
    else if (group.code() == kEmbedded && !embedded) sections.push_back({"101", {group}});
    else sections.back().groups.push_back(group);
  }
  return sections;
}

// Sorts the groups of a list into the sections of a record.
class Sorter {
 public:
  Sorter(const std::vector<Section>& sections, const RecordFormat* format, bool entity)
      : sections_(sections), format_(format), entity_(entity), sorted_(sections.size()) {}

  std::vector<std::vector<Group>> sort(const std::vector<Group>& given) {
    std::map<std::string, int> turns;
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
        const std::string mark = upperCase(group.text());
        current = place(mark, ++turns[mark]);
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
    groups.insert(groups.end(), given.begin() + static_cast<std::ptrdiff_t>(item.begin),
                  given.begin() + static_cast<std::ptrdiff_t>(item.end));
  }
  std::size_t place(const std::string& mark, int turn) const {
    for (std::size_t i = 1; i < sections_.size(); ++i)
      if (equalNoCase(sections_[i].mark, mark) && --turn == 0) return i;
    return kLoose;
  }
  // Whether a section has a place for the group; it has when no other does.
  bool belongs(std::size_t section, int code) const {
    const auto& groups = sections_[section].groups;
    if (!format_ || std::ranges::find(groups, code, &Group::code) != groups.end()) return true;
    bool elsewhere = false;
    for (const Field& field : format_->fields) {
      const std::size_t found = field.code == code ? sectionOf(field) : kLoose;
      if (found == section) return true;
      elsewhere |= found != kLoose;
    }
    return !elsewhere;
  }
  std::size_t sectionOf(const Field& field) const {
    const std::size_t hash = field.subclass.find('#');
    const int turn = hash == std::string_view::npos ? 1 : field.subclass[hash + 1] - '0';
    return place(std::string(field.subclass.substr(0, hash)), turn);
  }
  // The section for a group that stands behind no mark: that of the format, else the last that has its code.
  std::size_t home(int code) const {
    if (format_)
      for (const Field& field : format_->fields)
        if (field.code == code)
          if (const std::size_t found = sectionOf(field); found != kLoose) return found;
    std::size_t last = sections_.size() - 1;
    if (sections_[last].mark == "101") --last;
    for (std::size_t i = last + 1; i-- > 1;)
      if (std::ranges::find(sections_[i].groups, code, &Group::code) != sections_[i].groups.end()) return i;
    return last;
  }

  const std::vector<Section>& sections_;
  const RecordFormat* format_;
  bool entity_;
  bool braces_ = false;
  std::vector<std::vector<Group>> sorted_;
};

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
  const std::vector<Section> stored = sectionsOf(before.groups), shown = sectionsOf(shownGroups(stub));
  const auto sorted = Sorter(shown, format, stub.is(AcDbStub::kEntity)).sort(given);
  Record after;
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (i > 0 && stored[i].mark != "101") after.groups.push_back(Group::text(kMark, stored[i].mark));
    // Without marks (R12) the head holds everything.
    if (i == 0 && stored.size() > 1) {
      after.groups.insert(after.groups.end(), stored[i].groups.begin(), stored[i].groups.end());
      continue;
    }
    const auto merged = mergedSection({stored[i].mark, format, stored[i].groups, shown[i].groups, sorted[i]});
    after.groups.insert(after.groups.end(), merged.begin(), merged.end());
  }
  takeBraces(after, given);
  return after;
}

}  // namespace atelier
