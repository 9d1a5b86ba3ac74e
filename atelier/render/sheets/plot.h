// Plotting a display list to a file: PDF and SVG as vectors, PNG as a picture.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/shapes/inks.h"
#include "atelier/render/sheets/page.h"

namespace atelier::render {

struct PlotOptions {
  PlotRequest page;
  double dpi = 150;          // of a PNG; kLeastDpi to kMostDpi
  std::optional<Inks> inks;  // none: those that the layout names
};

// The kind follows the extension of the file: .pdf .svg .png, letter case ignored. Gives the warnings of the
// scene and of the page, in French. Throws PlotError for an unknown extension, a page that isn't possible, a picture too
// large, or a file that can't be written (the old one is then unchanged).
std::vector<std::string> plot(const WholeScene& scene, const std::string& file, const PlotOptions& options);

}  // namespace atelier::render
