// Cairo's PDF surface, page by page.
// Each page has its own size, which Cairo must know before anything is painted.
#include "atelier/render/sheets/pdf_file.h"

#include <cairo-pdf.h>

#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {

cairo_status_t toAtomicFile(void* file, const unsigned char* bytes, unsigned int count) {
  return static_cast<AtomicFile*>(file)->write(bytes, count) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

void checkCairo(cairo_status_t status, const std::string& file) {
  if (status != CAIRO_STATUS_SUCCESS && status != CAIRO_STATUS_WRITE_ERROR)
    throw PlotError(file + " : tracé impossible (" + cairo_status_to_string(status) + ")");
}

void dropPage(cairo_surface_t* surface) {
  cairo_t* context = cairo_create(surface);
  cairo_set_operator(context, CAIRO_OPERATOR_CLEAR);
  cairo_paint(context);
  cairo_destroy(context);
}

PdfFile::PdfFile(const std::string& file)
    : name_(file),
      out_(file),
      surface_(cairo_pdf_surface_create_for_stream(toAtomicFile, &out_, 1, 1), cairo_surface_destroy),
      context_(cairo_create(surface_.get()), cairo_destroy) {
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "Kavel");
}

void PdfFile::beginPage(double widthMm, double heightMm) {
  if (open_) cairo_show_page(context_.get());
  cairo_pdf_surface_set_size(surface_.get(), widthMm * kPointsPerMm, heightMm * kPointsPerMm);
  open_ = true;
}

PdfFile::~PdfFile() {
  if (open_ && !finished_) dropPage(surface_.get());
}

void PdfFile::finish() {
  finished_ = true;
  cairo_show_page(context_.get());
  checkCairo(cairo_status(context_.get()), name_);
  cairo_surface_finish(surface_.get());
  checkCairo(cairo_surface_status(surface_.get()), name_);
  out_.commit();
}

}  // namespace atelier::render
