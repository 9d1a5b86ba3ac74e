// Opening the file of a drawing, through a converter when it is of another format.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "hote/dbmain.h"

namespace atelier {

// Converts a drawing of another format: gives the path of a temporary DXF file, which is removed once it is open, or
// an empty path for a format that it doesn't know. Throws Error. A converted drawing has no path to save to.
using DrawingConverter = std::string (*)(const std::string& path);
void setDrawingConverter(DrawingConverter converter);

// A new drawing for an empty path. With messages, what can be read of a damaged file is opened, and they say what was left
// out; of a converted one always, since its faults are the converter's. `note` gets what the user is told, lines with
// their ends. Throws Error, which names the path.
std::unique_ptr<AcDbDatabase> openDrawingFile(const std::string& path, std::vector<std::string>* messages,
                                              std::string& note);

}  // namespace atelier
