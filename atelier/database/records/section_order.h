// The sections of a record in the order of its format.
#pragma once
#include "atelier/database/records/record.h"

namespace atelier {

// Brings what other programs wrote elsewhere to where the format has it: properties that all entities share (layer, color
// ...) from behind a later mark, marks in another case or order. A record that is in order isn't touched.
void arrangeSections(Record& record);

// Whether a group of that section belongs to what all entities share.
bool isMisplaced(const RecordFormat& format, std::string_view section, int code);

}  // namespace atelier
