// Layouts on pages of their own size: what stands in paper space, and the model through its viewports.
#pragma once

#include <string>
#include <vector>

#include "atelier/render/sheets/plot.h"

namespace atelier::render {

// The layouts that show something, in the order of their tabs; the model space isn't among them.
std::vector<std::string> layoutsOf(const AcDbDatabase& database);

// Plots layouts by their names: pages of a PDF; of pictures one file each, named after both, when there are several.
// The sheet and the scale are those of the layout, unless the options say otherwise. Gives warnings in French. Throws
// PlotError as plot does, and for a layout that isn't there.
std::vector<std::string> plotLayouts(const AcDbDatabase& database, const std::vector<std::string>& names,
                                     const std::string& file, const PlotOptions& options);

}  // namespace atelier::render
