// A PDF of several pages in an atomic file. Inner header of the room.
#pragma once

#include <cairo.h>

#include <memory>
#include <string>
#include <vector>

#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/sheets/atomic_file.h"

namespace atelier::render {

// Cairo's stream into an AtomicFile.
cairo_status_t toAtomicFile(void* file, const unsigned char* bytes, unsigned int count);
// Throws PlotError for a failure of Cairo itself; commit() reports failures of writing, with the system's reason.
void checkCairo(cairo_status_t status, const std::string& file);

// Drops what was painted on the current page: Cairo would process all of it once more when the surface ends.
void dropPage(cairo_surface_t* surface);

class PdfFile {
 public:
  static constexpr double kPointsPerMm = 72 / 25.4;
  static constexpr std::size_t kMostPaths = 1'500'000;  // and texts, on a page: Cairo keeps them to its end

  // Throws PlotError when the folder can't be written.
  explicit PdfFile(const std::string& file);
  ~PdfFile();
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;
  // Ends the previous page and begins one of this size, in millimetres.
  void beginPage(double widthMm, double heightMm);
  // What readers of the file show; UTF-8, empty for nothing.
  void describe(const std::string& title, const std::string& author, const std::string& subject);
  // A line of the reader's list that leads to the current page.
  void bookmark(const std::string& text);
  // Has a painting note the layers of a drawing's objects, which a reader of the file shows and hides. Not those of a drawing in
  // which they alternate too often: all of it is always seen then.
  void noteLayers(PaintOptions& options, const WholeScene& scene);
  // The current page, in points from its top left corner.
  cairo_t* context() const { return context_.get(); }
  // Ends the last page and replaces the target. Throws PlotError; the target is then unchanged.
  void finish();

 private:
  void layer(const std::string& name);  // where what is painted next belongs; empty for what is always seen
  std::string name_;
  AtomicFile out_;
  std::string bytes_;
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context_;
  bool open_ = false, finished_ = false;
  std::vector<std::vector<std::string>> layers_;  // of each page, in the order of their marks
  std::string layer_;
};

}  // namespace atelier::render
