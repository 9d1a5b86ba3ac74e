// Saves a drawing in another version or form than that of its file.
// All is written from the records; unlike with save(), unchanged bytes aren't copied.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "hote/dbmain.h"

namespace atelier::dxf {

// release: "R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018". Gives what the version can't hold, a French
// line for each kind. The database is unchanged and keeps its own file and version. Throws FileError as save() does,
// and Error for an unknown release.
std::vector<std::string> saveAs(AcDbDatabase& database, const std::string& path, std::string_view release,
                                bool binary = false);

// Whether the drawing's own file is binary.
bool isBinary(const AcDbDatabase& database);

}  // namespace atelier::dxf
