// Layouts by their names: model space is the layout "Model", each paper space one of its own.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Whether the block record is the space of a sheet.
bool isPaperSpace(AcDbStub& block);
// The LAYOUT object of a space; null where there is none (R12).
AcDbStub* layoutOf(AcDbStub& space);
// Name of the layout that this block record is the space of; empty for any other block.
std::string layoutNameOf(AcDbStub& block);
// The space of the layout of that name, case ignored; null when there is none.
AcDbStub* spaceOfLayout(AcDbImpDatabase& database, std::string_view name);
// The spaces of all layouts but the model space, in the order of their tabs.
std::vector<AcDbStub*> sheetsOf(AcDbImpDatabase& database);

}  // namespace atelier
