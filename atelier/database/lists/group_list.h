// Groups of a list where they stand, in a record or a table of defaults, and those that were made for it.
// Programs ask for lists of thousands of objects: copies of their groups took a seventh of the time.
#pragma once
#include <algorithm>
#include <forward_list>
#include <utility>
#include <vector>

#include "atelier/database/records/group.h"

namespace atelier {

// Valid as long as the record that it was made from is unchanged and in memory: read at once.
class GroupList {
 public:
  void reserve(std::size_t count) { groups_.reserve(count); }
  void keep(const Group& standing) { groups_.push_back(&standing); }
  void add(Group made) { groups_.push_back(&own(std::move(made))); }
  void replace(std::size_t index, Group made) { groups_[index] = &own(std::move(made)); }
  void insert(std::size_t index, std::vector<Group> made) {
    std::vector<const Group*> inserted;
    for (Group& group : made) inserted.push_back(&own(std::move(group)));
    groups_.insert(groups_.begin() + static_cast<std::ptrdiff_t>(index), inserted.begin(), inserted.end());
  }
  // From that index on, those of that code.
  void erase(std::size_t from, int code) {
    groups_.erase(std::remove_if(groups_.begin() + static_cast<std::ptrdiff_t>(from), groups_.end(),
                                 [code](const Group* group) { return group->code() == code; }),
                  groups_.end());
  }

  std::size_t size() const { return groups_.size(); }
  bool empty() const { return groups_.empty(); }
  const Group& operator[](std::size_t index) const { return *groups_[index]; }
  std::vector<Group> copies() const {
    std::vector<Group> all;
    all.reserve(groups_.size());
    for (const Group* group : groups_) all.push_back(*group);
    return all;
  }

 private:
  const Group& own(Group made) {
    made_.push_front(std::move(made));
    return made_.front();
  }
  std::vector<const Group*> groups_;
  std::forward_list<Group> made_;
};

}  // namespace atelier
