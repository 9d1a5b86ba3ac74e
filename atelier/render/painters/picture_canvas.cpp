// Pictures in memory.
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {

PictureCanvas::PictureCanvas(unsigned char* pixels, int width, int height, int stride)
    : surface_(cairo_image_surface_create_for_data(pixels, CAIRO_FORMAT_ARGB32, width, height, stride)),
      context_(cairo_create(surface_)) {
  if (const auto status = cairo_status(context_); status != CAIRO_STATUS_SUCCESS) {
    cairo_destroy(context_);
    cairo_surface_destroy(surface_);
    throw PlotError(std::string("image impossible : ") + cairo_status_to_string(status));
  }
  cairo_set_operator(context_, CAIRO_OPERATOR_CLEAR);
  cairo_paint(context_);
  cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
}

PictureCanvas::~PictureCanvas() {
  cairo_surface_flush(surface_);
  cairo_destroy(context_);
  cairo_surface_destroy(surface_);
}

void PictureCanvas::ground(const Colour& colour) {
  cairo_set_operator(context_, CAIRO_OPERATOR_DEST_OVER);
  cairo_set_source_rgb(context_, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
  cairo_paint(context_);
  cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
}

void paintPicture(unsigned char* pixels, int width, int height, int stride, const DisplayList& list,
                  PaintOptions options) {
  PictureCanvas canvas(pixels, width, height, stride);
  canvas.ground(options.background);
  if (options.clip.empty()) options.clip = {0, 0, static_cast<double>(width), static_cast<double>(height)};
  paint(canvas.context(), list, options);
}

}  // namespace atelier::render
