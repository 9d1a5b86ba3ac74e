// Pages made of scenes, written to a file: PDF and SVG as vectors, PNG as a picture. Inner header of the room.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/shapes/inks.h"

namespace atelier::render {

// A scene in its place: painted inside a box only.
struct PagePart {
  const WholeScene* scene;
  Affine toPage;  // drawing units to page millimetres
  Box clipMm;
};

// Page millimetres from the top left corner, y downwards; parts from below to above.
struct PaintedPage {
  double widthMm = 0, heightMm = 0;
  std::vector<PagePart> parts;
  Inks inks;
};

enum class FileKind : unsigned char { pdf, svg, png };
// By the extension; throws PlotError for any other one.
FileKind kindOf(const std::string& file);

// Of an SVG and a PNG one page; dpi of a PNG. Throws PlotError; the old file is then unchanged.
void writePages(std::span<const PaintedPage> pages, const std::string& file, double dpi);

}  // namespace atelier::render
