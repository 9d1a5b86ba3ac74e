// Writes a drawing: the bytes of its file, with the changes put in.
// Saving is atomic: a temporary file beside the target, flushed, then renamed; the old file becomes .bak.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "hote/dbmain.h"

namespace atelier::dxf {

using Sink = std::function<void(std::string_view)>;

// Gives the bytes of the whole file, in order, to the sink.
void write(AcDbDatabase& database, const Sink& sink);

// Throws FileError with the reason; the file at the path is then unchanged. A drawing opened by recovering can't be
// saved under the name of the damaged file, unless the database says that it may be overwritten.
void save(AcDbDatabase& database, const std::string& path);

// Writes the same bytes under another name, without a backup of what was there and without waiting for the disk; the drawing keeps
// its own name, and its changes count as not saved.
void saveCopy(AcDbDatabase& database, const std::string& path);

// Throws FileError when the path is that of the damaged file that the drawing was recovered from.
void refuseDamaged(AcDbDatabase& database, const std::string& path);

}  // namespace atelier::dxf
