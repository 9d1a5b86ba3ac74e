// What the files of this room share about groups of lists.
// Inner header of the room.
#pragma once
#include <string>
#include <vector>

#include "atelier/database/lists/group_list.h"
#include "atelier/database/records/record.h"

namespace atelier {

// Groups 50 to 58 are angles: degrees in the drawing, radians in lists. Degrees made radians and back are unchanged.
void anglesInRadians(GroupList& groups);
void anglesInDegrees(std::vector<Group>& groups);

// Whether the group belongs to the object's identity (handle, name), which no list may set.
inline bool isIdentity(const Group& group) { return group.code() == 5 || group.code() == 105 || group.code() == -1; }
inline bool isMark(const Group& group) { return group.code() == 100; }

// The text of the first group of that code; empty when there is none.
std::string textOf(const std::vector<Group>& groups, int code);

// One item of a list: a group, or the two or three groups of a point.
struct Item {
  std::size_t begin = 0, end = 0;
};
// The items of the groups from `begin` to `end`.
std::vector<Item> itemsOf(const std::vector<Group>& groups, std::size_t begin, std::size_t end);

// The record of a new object: a list with marks keeps its order and gets the groups that are always written; without
// marks each group goes into the section in which the format has it.
Record listedRecord(std::vector<Group> given);
// The same for a list whose marks are to be left out.
Record arrangedRecord(const std::vector<Group>& given);

}  // namespace atelier
