// Puts values of a list into one section of a record: single groups one by one, repeated ones all together.
// Inner header of the room.
#pragma once
#include <set>

#include "atelier/database/lists/list_groups.h"
#include "atelier/database/lists/merged_section.h"

namespace atelier {

bool sameGroups(const std::vector<Group>& a, const std::vector<Group>& b);
// The items of these codes, one after the other.
std::vector<Group> listOf(const std::vector<Group>& groups, const std::set<int>& codes);
// The codes of the items.
std::set<int> codesOf(const std::vector<Group>& groups);

class SectionMerger {
 public:
  using Groups = std::vector<Group>;
  explicit SectionMerger(const SectionMerge& section) : s_(section), result_(section.stored) {}

  // Codes that occur more than once, of those that no field of the format has.
  std::set<int> repeated() const;
  // Single values of all other codes, where they differ from what is shown.
  void single(const std::set<int>& lists);
  // The list's groups of these codes in the place of those stored, when it has any and they differ.
  void list(const std::set<int>& codes);
  void replace(const std::set<int>& codes, const Groups& groups);
  void set(const Groups& value);
  // The section as the list has it, without defaults that only lists show.
  void takeGiven();
  Groups take() { return std::move(result_); }

 private:
  std::size_t rankOf(int code) const;

  const SectionMerge& s_;
  Groups result_;
};

}  // namespace atelier
