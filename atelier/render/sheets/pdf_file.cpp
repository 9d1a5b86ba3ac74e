// Cairo's PDF surface, page by page.
// Each page has its own size, which Cairo must know before anything is painted.
#include "atelier/render/sheets/pdf_file.h"

#include <cairo-pdf.h>

#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/pdf_layers.h"

namespace atelier::render {

namespace {

constexpr std::size_t kMostMarks = 20'000;  // of layers, in a view: Cairo keeps three kilobytes for each

cairo_status_t toString(void* text, const unsigned char* bytes, unsigned int count) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), count);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

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
      surface_(cairo_pdf_surface_create_for_stream(toString, &bytes_, 1, 1), cairo_surface_destroy),
      context_(cairo_create(surface_.get()), cairo_destroy) {
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "Kavel");
}

void PdfFile::beginPage(double widthMm, double heightMm) {
  if (open_) cairo_show_page(context_.get());
  cairo_pdf_surface_set_size(surface_.get(), widthMm * kPointsPerMm, heightMm * kPointsPerMm);
  open_ = true;
  layers_.emplace_back();
}

void PdfFile::describe(const std::string& title, const std::string& author, const std::string& subject) {
  const auto tell = [&](cairo_pdf_metadata_t what, const std::string& text) {
    if (!text.empty()) cairo_pdf_surface_set_metadata(surface_.get(), what, text.c_str());
  };
  tell(CAIRO_PDF_METADATA_TITLE, title);
  tell(CAIRO_PDF_METADATA_AUTHOR, author);
  tell(CAIRO_PDF_METADATA_SUBJECT, subject);
}

void PdfFile::bookmark(const std::string& text) {
  if (text.empty()) return;
  const std::string place = "page=" + std::to_string(layers_.size()) + " pos=[0 0]";
  cairo_pdf_surface_add_outline(surface_.get(), CAIRO_PDF_OUTLINE_ROOT, text.c_str(), place.c_str(),
                                CAIRO_PDF_OUTLINE_FLAG_OPEN);
}

void PdfFile::noteLayers(PaintOptions& options, const WholeScene& scene) {
  if (!scene.layered(kMostMarks)) return;
  options.layerOf = [&scene](std::uint64_t source) { return scene.layerOf(source); };
  options.layer = [this](const std::string& name) { layer(name); };
}

void PdfFile::layer(const std::string& name) {
  if (name == layer_) return;
  if (!layer_.empty()) cairo_tag_end(context_.get(), kLayerMark);
  layer_ = name;
  if (name.empty()) return;
  cairo_tag_begin(context_.get(), kLayerMark, nullptr);
  layers_.back().push_back(name);
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
  const std::string whole = withLayers(bytes_, layers_);
  out_.write(whole.data(), whole.size());
  out_.commit();
}

}  // namespace atelier::render
