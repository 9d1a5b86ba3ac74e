// IMAGE and WIPEOUT: the outline of what they show.
#include "atelier/database/pictures/raster_outline.h"
#include "atelier/database/pictures/part_maker.h"

namespace atelier {

RasterOutline rasterOutline(const Record& record) {
  const Groups g(record);
  RasterOutline out;
  out.u = g.point(11).asVector(), out.v = g.point(12).asVector();
  out.origin = g.point(10);
  out.columns = g.real(13), out.rows = g.real(23);
  std::vector<AcGePoint2d> pixels;
  // Corners stand on the middles of pixels, the first row on top; two mean a rectangle.
  if (g.integer(280) != 0)
    for (const AcGePoint3d& p : g.points(14)) pixels.emplace_back(p.x + 0.5, p.y + 0.5);
  if (pixels.size() < 2) pixels = {{0, 0}, {out.columns, out.rows}};
  if (pixels.size() == 2) pixels = {pixels[0], {pixels[1].x, pixels[0].y}, pixels[1], {pixels[0].x, pixels[1].y}};
  if (pixels.size() > 3 && pixels.front() == pixels.back()) pixels.pop_back();
  for (const AcGePoint2d& p : pixels) out.corners.push_back(out.at(p.x, p.y));
  out.inverted = g.integer(290) != 0;
  return out;
}

void rasterFrame(PartMaker& make, const Record& record) { make.path(rasterOutline(record).corners, true); }

}  // namespace atelier
