// A drawing of R12 as the text of a later one: marks, owners, block records, layouts and dictionaries come from the drawing
// that new ones start from.
#pragma once
#include <string>
#include <vector>

#include "hote/dbmain.h"

namespace atelier::dxf {

struct ModernText {
  std::string text;               // R2018, UTF-8
  std::vector<std::string> lost;  // what has no counterpart, a French line for each kind
};

// Entities keep their handles. The database stays as it is.
ModernText modernText(AcDbDatabase& database);

}  // namespace atelier::dxf
