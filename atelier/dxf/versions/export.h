// Saving a drawing in another version or form than the one it was read in.
// Everything is written anew from the records; unlike saving, this is not byte for byte.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "hote/dbmain.h"

namespace atelier::dxf {

// release: "R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018". Gives what the version can't hold, a French line
// for each kind. The database stays as it is and keeps its own file and version. Throws FileError as save() does, and
// Error for a release that doesn't exist.
std::vector<std::string> saveAs(AcDbDatabase& database, const std::string& path, std::string_view release,
                                bool binary = false);

}  // namespace atelier::dxf
