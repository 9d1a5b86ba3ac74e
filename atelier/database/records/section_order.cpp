// Looks first, since nearly all records are in order; only then are the groups sorted into sections anew.
#include "atelier/database/records/section_order.h"

#include <algorithm>
#include <optional>

#include "atelier/base/text.h"

namespace atelier {
namespace {

constexpr std::string_view kEntity = "AcDbEntity";
constexpr int kMark = 100, kEmbedded = 101, kApplication = 1001;

bool endsSections(const Group& group) { return group.code() == kEmbedded || group.code() == kApplication; }

bool hasField(const RecordFormat& format, std::string_view section, int code) {
  return std::ranges::any_of(format.fields, [&](const Field& field) {
    const std::string_view name = field.subclass.substr(0, field.subclass.find('#'));
    return field.code == code && name == section;
  });
}

// Place of a mark among those of the format, `turn` counting those of the same name; nothing for one it doesn't have.
std::optional<std::size_t> rankOf(const RecordFormat& format, std::string_view mark, int turn) {
  for (std::size_t i = 0; i < format.subclasses.size(); ++i) {
    const std::string_view name = format.subclasses[i].substr(0, mark.size()),
                           rest = format.subclasses[i].substr(name.size());
    const bool same = (rest.empty() || rest.front() == '#') && (name == mark || equalNoCase(name, mark));
    if (same && --turn == 0) return i;
  }
  return std::nullopt;
}

std::string_view spelled(const RecordFormat& format, std::size_t rank) {
  return format.subclasses[rank].substr(0, format.subclasses[rank].find('#'));
}

struct Section {
  std::string mark;  // empty: the head
  std::optional<std::size_t> rank;
  std::vector<Group> groups;  // without the mark
};

bool inOrder(const Record& record, const RecordFormat& format) {
  std::string_view section;
  std::size_t last = 0;
  bool mayMisplace = false;  // before the first mark and among the common groups everything is at its place
  for (const Group& group : record.groups) {
    if (endsSections(group)) break;
    if (group.code() == kMark) {
      const auto rank = rankOf(format, group.text(), group.text() == section ? 2 : 1);
      if (rank && (*rank < last || spelled(format, *rank) != group.text())) return false;
      if (rank) last = *rank;
      section = group.text();
      mayMisplace = !section.empty() && section != kEntity;
    } else if (mayMisplace && isMisplaced(format, section, group.code())) {
      return false;
    }
  }
  return true;
}

std::vector<Section> sectionsOf(std::vector<Group>& groups, std::size_t end, const RecordFormat& format) {
  std::vector<Section> sections(1);
  for (std::size_t i = 0; i < end; ++i) {
    if (groups[i].code() != kMark) {
      sections.back().groups.push_back(std::move(groups[i]));
      continue;
    }
    const std::string& text = groups[i].text();
    const auto earlier =
        std::ranges::count_if(sections, [&](const Section& section) { return equalNoCase(section.mark, text); });
    const auto rank = rankOf(format, text, static_cast<int>(earlier) + 1);
    sections.push_back({rank ? std::string(spelled(format, *rank)) : text, rank, {}});
  }
  return sections;
}

}  // namespace

bool isMisplaced(const RecordFormat& format, std::string_view section, int code) {
  switch (code) {
    case 6:
    case 8:
    case 48:
    case 60:
    case 62:
    case 67:
    case 370:
    case 410:
    case 420:
    case 440: return section != kEntity && hasField(format, kEntity, code) && !hasField(format, section, code);
    default: return false;
  }
}

void arrangeSections(Record& record) {
  const RecordFormat* format = formatOf(record.type());
  if (!format || inOrder(record, *format)) return;
  const auto tail = std::ranges::find_if(record.groups, endsSections);
  const auto end = static_cast<std::size_t>(tail - record.groups.begin());
  std::vector<Group> rest(std::make_move_iterator(tail), std::make_move_iterator(record.groups.end()));
  std::vector<Section> sections = sectionsOf(record.groups, end, *format);
  std::vector<Group> common;
  for (Section& section : sections) {
    if (section.mark.empty()) continue;
    const auto moved = std::stable_partition(section.groups.begin(), section.groups.end(), [&](const Group& group) {
      return !isMisplaced(*format, section.mark, group.code());
    });
    common.insert(common.end(), std::make_move_iterator(moved), std::make_move_iterator(section.groups.end()));
    section.groups.erase(moved, section.groups.end());
  }
  auto entity = std::ranges::find(sections, kEntity, &Section::mark);
  if (entity == sections.end() && !common.empty())
    entity = sections.insert(sections.begin() + 1, {std::string(kEntity), std::size_t{0}, {}});
  if (!common.empty()) {
    // What stands at its place counts before what stands elsewhere.
    for (Group& group : common)
      if (std::ranges::find(entity->groups, group.code(), &Group::code) == entity->groups.end())
        entity->groups.push_back(std::move(group));
  }
  // Sections that the format doesn't have stay behind those they followed.
  std::size_t known = 0;
  std::vector<std::pair<std::size_t, Section*>> order;
  for (Section& section : sections) order.emplace_back(section.rank ? known = *section.rank + 1 : known, &section);
  std::ranges::stable_sort(order, {}, [](const auto& entry) { return entry.first; });
  record.groups.clear();
  for (auto& [place, section] : order) {
    if (!section->mark.empty()) record.groups.push_back(Group::text(kMark, section->mark));
    record.groups.insert(record.groups.end(), std::make_move_iterator(section->groups.begin()),
                         std::make_move_iterator(section->groups.end()));
  }
  record.groups.insert(record.groups.end(), std::make_move_iterator(rest.begin()), std::make_move_iterator(rest.end()));
}

}  // namespace atelier
