// One function for each kind of file; all write through the same stream into an atomic file.
// Vector surfaces are in points, pictures in pixels.
#include "atelier/render/sheets/painted_page.h"

#include <cairo-svg.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "atelier/base/interruption.h"
#include "atelier/base/text.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/atomic_file.h"
#include "atelier/render/sheets/page.h"
#include "atelier/render/sheets/pdf_file.h"

namespace atelier::render {

namespace {

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

constexpr int kGreatestSide = 32767;        // of Cairo's pictures, pixels
constexpr double kGreatestPicture = 250e6;  // pixels: a gigabyte
constexpr double kHairlineMm = 0.09;        // the thinnest line a plotter draws

// What is painted, and how large a millimetre is on it; a PDF for its layers.
struct Canvas {
  cairo_t* context;
  double unitsPerMm, thinnest;
  bool embedFonts;
  PdfFile* pdf = nullptr;
};

void paintPart(const Canvas& canvas, const PagePart& part, const Inks& inks) {
  const double unitsPerMm = canvas.unitsPerMm;
  PaintOptions options;
  options.toSurface = Affine::scaling(unitsPerMm, unitsPerMm) * part.toPage;
  options.unitsPerMm = unitsPerMm;
  options.clip = fonts::rectangle(part.clipMm).bounds(Affine::scaling(unitsPerMm, unitsPerMm));
  options.thinnest = canvas.thinnest;
  options.embedFonts = canvas.embedFonts;
  if (canvas.embedFonts) options.most = PdfFile::kMostPaths;
  if (canvas.pdf) canvas.pdf->noteLayers(options, *part.scene);
  options.step = checkInterruption;
  options.inks = inks;
  Painting painting(canvas.context, options);
  part.scene->each([&](const Primitive& item) { painting.item(item); });
}

void paintPage(const Canvas& canvas, const PaintedPage& page) {
  for (const PagePart& part : page.parts) paintPart(canvas, part, page.inks);
}

void paintPage(cairo_surface_t* surface, const PaintedPage& page, double unitsPerMm, double thinnest, bool embedFonts,
               const std::string& file) {
  const Context context(cairo_create(surface), cairo_destroy);
  paintPage({context.get(), unitsPerMm, thinnest, embedFonts}, page);
  checkCairo(cairo_status(context.get()), file);
}

void pdf(std::span<const PaintedPage> pages, const std::string& file) {
  PdfFile out(file);
  for (const PaintedPage& page : pages) {
    out.beginPage(page.widthMm, page.heightMm);
    paintPage({out.context(), PdfFile::kPointsPerMm, kHairlineMm * PdfFile::kPointsPerMm, true, &out}, page);
  }
  out.finish();
}

void svg(const PaintedPage& page, AtomicFile& out, const std::string& file) {
  const double perMm = PdfFile::kPointsPerMm;
  const Surface surface(
      cairo_svg_surface_create_for_stream(toAtomicFile, &out, page.widthMm * perMm, page.heightMm * perMm),
      cairo_surface_destroy);
  try {
    paintPage(surface.get(), page, perMm, kHairlineMm * perMm, true, file);
  } catch (...) {
    dropPage(surface.get());
    throw;
  }
  cairo_surface_finish(surface.get());
  checkCairo(cairo_surface_status(surface.get()), file);
}

void picture(double dpi, const PaintedPage& page, AtomicFile& out, const std::string& file) {
  if (!(dpi >= kLeastDpi && dpi <= kMostDpi))
    throw PlotError("résolution hors limites : attendu de 10 à 2400 points par pouce");
  const double perMm = dpi / 25.4, width = std::round(page.widthMm * perMm), height = std::round(page.heightMm * perMm);
  if (std::max(width, height) > kGreatestSide || width * height > kGreatestPicture)
    throw PlotError(file + " : image trop grande, baissez la résolution ou choisissez .pdf ou .svg");
  const Surface surface(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height)),
      cairo_surface_destroy);
  checkCairo(cairo_surface_status(surface.get()), file);
  {
    const Context context(cairo_create(surface.get()), cairo_destroy);
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
  }
  paintPage(surface.get(), page, perMm, 1, false, file);
  checkCairo(cairo_surface_write_to_png_stream(surface.get(), toAtomicFile, &out), file);
}

std::string extension(const std::string& file) {
  const auto dot = file.rfind('.'), slash = file.rfind('/');
  const bool has = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return has ? file.substr(dot) : "";
}

}  // namespace

FileKind kindOf(const std::string& file) {
  const std::string kind = extension(file);
  if (equalNoCase(kind, ".pdf")) return FileKind::pdf;
  if (equalNoCase(kind, ".png")) return FileKind::png;
  if (equalNoCase(kind, ".svg")) return FileKind::svg;
  throw PlotError(file + " : type de tracé inconnu, attendu .pdf, .svg ou .png");
}

void writePages(std::span<const PaintedPage> pages, const std::string& file, double dpi) {
  const FileKind kind = kindOf(file);
  if (kind == FileKind::pdf) return pdf(pages, file);
  AtomicFile out(file);
  if (kind == FileKind::png) picture(dpi, pages.front(), out, file);
  else svg(pages.front(), out, file);
  out.commit();
}

}  // namespace atelier::render
