// An R12 drawing as the text of a later version. Marks are added; owners, block records, layouts and dictionaries come
// from the drawing that new ones start from.
#pragma once
#include <string>
#include <vector>

#include "hote/dbmain.h"

namespace atelier::dxf {

struct ModernText {
  std::string text;               // R2018, UTF-8
  std::vector<std::string> lost;  // records without a counterpart, a French line for each kind
};

// Entities keep their handles. The database is unchanged.
ModernText modernText(AcDbDatabase& database);

}  // namespace atelier::dxf
