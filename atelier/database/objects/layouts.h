// Layouts by their names: model space is the layout "Model", each paper space one of its own.
#pragma once
#include <string>
#include <string_view>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Name of the layout that this block record is the space of; empty for any other block.
std::string layoutNameOf(AcDbStub& block);
// The space of the layout of that name, case ignored; null when there is none.
AcDbStub* spaceOfLayout(AcDbImpDatabase& database, std::string_view name);

}  // namespace atelier
