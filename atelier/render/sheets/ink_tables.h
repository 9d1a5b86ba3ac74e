// Tables of inks as text files, one's own and those that come with the program; docs/formats.md has the format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/records/fields.h"
#include "atelier/render/shapes/inks.h"

class AcDbStub;

namespace atelier::render {

// Throws FileError with the line that isn't understood.
Inks readInks(const std::string& file);

// "colour", "grey" and "black", or in French "couleurs", "gris" and "noir"; the name of a table; or a file. Throws PlotError when there
// is none, FileError as readInks does.
Inks inksNamed(const std::string& name);

// The tables that are known by their names: one's own, then those of the program.
std::vector<std::string> inkTables();

// The folder of one's own.
std::string inkFolder();

// Those of a table as other programs name it: an extension doesn't count, and one that isn't here leaves all as drawn.
Inks inksOfTable(const std::string& name);

// The field of a LAYOUT that names its table.
inline constexpr Field kTableField = textField("AcDbPlotSettings", 7);
// The table that a layout names, without an extension; empty for none.
std::string tableOf(AcDbStub& space);
Inks inksOf(AcDbStub& space);

}  // namespace atelier::render
