// Joining polylines with curves that touch their ends, for PEDIT and JOIN.
// Inner header of the room.
#pragma once
#include <vector>

#include "atelier/commands/command_prompts.h"
#include "hote/dbpl.h"

namespace atelier {

// Joins curves of the set that touch an end, until no more do, and erases them; gives their number. What is on locked
// layers stays.
int joinTo(AcDbPolyline& polyline, const SelectionSet& set, AcDbImpDatabase& database, double reach);

// Joins the polylines with each other; those that became part of another one are erased and leave the list.
int joinAmong(const Command& c, std::vector<AcDbObjectId>& ids, double reach);

// Of open lines, arcs and polylines those that touch another one's end become polylines and are joined.
int joinTouching(const Command& c, const std::vector<AcDbObjectId>& ids);

}  // namespace atelier
