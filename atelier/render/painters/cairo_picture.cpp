// A PDF gets a photograph as it is in its file.
#include "atelier/render/painters/cairo_picture.h"

#include <cmath>

namespace atelier::render {

namespace {

// The surface holds the picture as long as Cairo needs the bytes.
void keepJpeg(cairo_surface_t* surface, const std::shared_ptr<const Picture>& picture) {
  if (picture->jpeg.empty()) return;
  using Held = std::shared_ptr<const Picture>;
  const auto* bytes = reinterpret_cast<const unsigned char*>(picture->jpeg.data());
  cairo_surface_set_mime_data(
      surface, CAIRO_MIME_TYPE_JPEG, bytes, picture->jpeg.size(), [](void* held) { delete static_cast<Held*>(held); },
      new Held(picture));
}

}  // namespace

void paintPixels(cairo_t* context, const Raster& raster, const Affine& map) {
  if (!(std::abs(map.determinant()) > 0)) return;
  const Picture& picture = *raster.picture;
  const cairo_matrix_t matrix{map.xx, map.yx, map.xy, map.yy, map.x0, map.y0};
  cairo_transform(context, &matrix);
  // Cairo reads the pixels, although it asks for writable ones.
  auto* const pixels = reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(picture.pixels.data()));
  cairo_surface_t* const surface = cairo_image_surface_create_for_data(pixels, CAIRO_FORMAT_ARGB32, picture.width,
                                                                       picture.height, 4 * picture.width);
  keepJpeg(surface, raster.picture);
  cairo_set_source_surface(context, surface, 0, 0);
  // Without fading at the rim; a PDF would hold a larger copy for that.
  if (cairo_surface_get_type(cairo_get_target(context)) == CAIRO_SURFACE_TYPE_IMAGE)
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
  cairo_paint_with_alpha(context, raster.alpha / 255.0);
  cairo_surface_destroy(surface);
}

}  // namespace atelier::render
