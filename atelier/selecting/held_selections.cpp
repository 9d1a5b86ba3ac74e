// Selection sets that handlers hold by name, from acedSSGet to acedSSFree.
// The first word of a name is the set's address; the second is 1, unlike that of an entity's name.
#include <unordered_map>

#include "atelier/selecting/selections.h"

namespace atelier {
namespace {
std::unordered_map<const void*, std::shared_ptr<SelectionSet>> held;
}

void holdSelection(const std::shared_ptr<SelectionSet>& set, ads_name name) {
  held[set.get()] = set;
  name[0] = reinterpret_cast<std::int64_t>(set.get());
  name[1] = 1;
}

std::shared_ptr<SelectionSet> heldSelection(const ads_name name) {
  const auto it = held.find(reinterpret_cast<const void*>(name[0]));
  return name[1] == 1 && it != held.end() ? it->second : nullptr;
}

SelectionSet* selectionOf(const ads_name name) {
  return name[1] == 1 && name[0] != 0 ? reinterpret_cast<SelectionSet*>(name[0]) : nullptr;
}

bool releaseSelection(const ads_name name) { return held.erase(reinterpret_cast<const void*>(name[0])) > 0; }

}  // namespace atelier
