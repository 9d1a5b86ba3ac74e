// Names in symbol tables.
// Lengths count characters, not bytes.
#include "atelier/database/tables/symbol_names.h"

#include <algorithm>

#include "atelier/base/text.h"

namespace atelier {

bool isSymbolName(std::string_view name) {
  if (name.empty() || name.size() > 1020 || toWide(name).size() > 255) return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    return std::string_view("<>/\\\":;?*|,=`").find(c) != std::string_view::npos ||
           static_cast<unsigned char>(c) < 0x20;
  });
}

}  // namespace atelier
