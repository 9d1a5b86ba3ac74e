// The parts of references and of polylines, as commands put them in the place of the whole.
#pragma once
#include <memory>
#include <vector>

#include "atelier/commands/command_prompts.h"
#include "hote/dbents.h"
#include "hote/dbpl.h"

namespace atelier {

using Parts = std::vector<std::unique_ptr<AcDbEntity>>;

// Appends lines and arcs in place of a lightweight polyline.
void explodePolyline(const AcDbPolyline& polyline, Parts& parts);

// Adds copies of what the reference shows to the current space; false for an array. The reference stays.
bool explodeReference(const Command& c, const AcDbBlockReference& reference);

}  // namespace atelier
