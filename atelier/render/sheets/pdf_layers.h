// The layers of a drawing in a PDF, which its readers show and hide. Inner header of the room.
#pragma once

#include <string>
#include <vector>

namespace atelier::render {

// The tag that Cairo writes around what belongs to one layer.
inline constexpr const char* kLayerMark = "Div";

// A PDF of Cairo's with its marks made optional content (ISO 32000-1, 8.11): the layer of each mark, page by page, in the order of
// the marks. All layers are on. Throws PlotError for a file that can't be read.
std::string withLayers(const std::string& pdf, const std::vector<std::vector<std::string>>& layers);

}  // namespace atelier::render
