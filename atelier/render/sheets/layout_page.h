// Layouts on pages of their own size: what stands in paper space, and the model through its viewports.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/render/sheets/plot.h"

namespace atelier::render {

// The layouts that show something, in the order of their tabs; the model space isn't among them.
std::vector<std::string> layoutsOf(const AcDbDatabase& database);

// The sheet of a layout in units of the layout; none when its settings don't tell.
std::optional<Box> sheetArea(AcDbImpDatabase& database, AcDbStub& space);

// Plots layouts by their names: pages of a PDF; of pictures one file each, named after both, when there are several.
// The sheet and the scale are those of the layout, unless the options say otherwise. Gives warnings in French. Throws
// PlotError as plot does, and for a layout that isn't there.
std::vector<std::string> plotLayouts(const AcDbDatabase& database, const std::vector<std::string>& names,
                                     const std::string& file, const PlotOptions& options);

}  // namespace atelier::render
