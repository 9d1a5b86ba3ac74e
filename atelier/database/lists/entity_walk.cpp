// The order of entities.
// The last place of a walk is remembered, so that walking a drawing from entity to entity is linear.
#include "atelier/database/lists/entity_walk.h"

#include <algorithm>

namespace atelier {
namespace {

AcDbStub* firstAlive(const std::vector<AcDbStub*>& list, std::size_t from) {
  for (std::size_t i = from; i < list.size(); ++i)
    if (!list[i]->is(AcDbStub::kErased)) return list[i];
  return nullptr;
}

std::size_t indexOf(const std::vector<AcDbStub*>& list, const AcDbStub* stub) {
  static thread_local std::size_t hint = 0;
  if (hint < list.size() && list[hint] == stub) return hint;
  if (hint + 1 < list.size() && list[hint + 1] == stub) return ++hint;
  hint = static_cast<std::size_t>(std::find(list.begin(), list.end(), stub) - list.begin());
  return hint;
}

}  // namespace

AcDbStub* firstOfBlock(AcDbImpDatabase& database, const AcDbStub* begin) {
  const auto ends = database.blockEnds.find(begin->owner);
  if (ends == database.blockEnds.end() || ends->second.begin != begin || !begin->owner->children) return nullptr;
  return firstAlive(*begin->owner->children, 0);
}

AcDbStub* nextEntity(AcDbImpDatabase& database, AcDbStub* after) {
  if (!after) {
    AcDbStub* space = database.database().currentSpaceId();
    return space && space->children ? firstAlive(*space->children, 0) : nullptr;
  }
  if (after->children && !after->children->empty() && after->is(AcDbStub::kEntity))
    if (AcDbStub* first = firstAlive(*after->children, 0)) return first;
  if (AcDbStub* first = firstOfBlock(database, after)) return first;
  AcDbStub* owner = after->owner;
  if (!owner || !owner->children) return nullptr;
  if (AcDbStub* next = firstAlive(*owner->children, indexOf(*owner->children, after) + 1)) return next;
  // After the last attribute or vertex the walk goes on after the insert or polyline itself.
  if (!owner->is(AcDbStub::kEntity) || !owner->owner || !owner->owner->children) return nullptr;
  return firstAlive(*owner->owner->children, indexOf(*owner->owner->children, owner) + 1);
}

AcDbStub* lastEntity(AcDbImpDatabase& database) {
  AcDbStub* space = database.database().currentSpaceId();
  if (!space || !space->children) return nullptr;
  const auto it = std::find_if(space->children->rbegin(), space->children->rend(),
                               [](const AcDbStub* s) { return !s->is(AcDbStub::kErased); });
  return it == space->children->rend() ? nullptr : *it;
}

}  // namespace atelier
