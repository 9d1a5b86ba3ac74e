// Cairo's font matrix maps the em square to the surface: our map, times the em in capital heights, with y reversed.
// A run has several faces when a font lacks a character: each stretch of one face is shown at once.
#include "atelier/render/painters/cairo_text.h"

#include <cairo-ft.h>

#include <cmath>

namespace atelier::render {

namespace {

struct Options {
  std::unique_ptr<cairo_font_options_t, decltype(&cairo_font_options_destroy)> held{cairo_font_options_create(),
                                                                                    cairo_font_options_destroy};
  Options() {
    cairo_font_options_set_hint_style(held.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(held.get(), CAIRO_HINT_METRICS_OFF);
  }
};

bool showStretch(cairo_t* context, std::span<const fonts::PlacedGlyph> stretch, cairo_font_face_t* face,
                 const Affine& map) {
  const double em = stretch[0].glyph->face->emInCapitals();
  const cairo_matrix_t matrix{map.xx * em, map.yx * em, -map.xy * em, -map.yy * em, 0, 0};
  static const Options options;
  const std::unique_ptr<cairo_scaled_font_t, decltype(&cairo_scaled_font_destroy)> font(
      [&] {
        cairo_matrix_t identity;
        cairo_matrix_init_identity(&identity);
        return cairo_scaled_font_create(face, &matrix, &identity, options.held.get());
      }(),
      cairo_scaled_font_destroy);
  if (cairo_scaled_font_status(font.get()) != CAIRO_STATUS_SUCCESS) return false;
  std::vector<cairo_glyph_t> glyphs;
  std::vector<cairo_text_cluster_t> clusters;
  std::u32string text;
  for (const auto& [glyph, x] : stretch) {
    const Pt at = map({x, 0});
    glyphs.push_back({glyph->index, at.x, at.y});
    text.push_back(glyph->character);
    clusters.push_back({static_cast<int>(fonts::encodeUtf8({&glyph->character, 1}).size()), 1});
  }
  const std::string utf8 = fonts::encodeUtf8(text);
  cairo_set_scaled_font(context, font.get());
  cairo_show_text_glyphs(context, utf8.data(), static_cast<int>(utf8.size()), glyphs.data(),
                         static_cast<int>(glyphs.size()), clusters.data(), static_cast<int>(clusters.size()),
                         cairo_text_cluster_flags_t{});
  return true;
}

}  // namespace

void setSource(cairo_t* context, const Colour& colour) {
  cairo_set_source_rgba(context, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0, colour.alpha / 255.0);
}

cairo_font_face_t* EmbeddedFonts::face(const fonts::Face* face) {
  const auto known = faces_.find(face);
  if (known != faces_.end()) return known->second.get();
  // Faces live until the end of the program, as Cairo requires.
  Face made(cairo_ft_font_face_create_for_ft_face(static_cast<FT_Face>(face->native()), FT_LOAD_NO_HINTING),
            cairo_font_face_destroy);
  return faces_.emplace(face, std::move(made)).first->second.get();
}

bool EmbeddedFonts::show(cairo_t* context, const fonts::TextLine& line, const Affine& map, const Colour& colour) {
  const double size = std::abs(map.xx) + std::abs(map.xy) + std::abs(map.yx) + std::abs(map.yy);
  if (!(std::abs(map.determinant()) > 1e-9 * size * size) || size < 1e-6) return false;
  for (const auto& [glyph, x] : line.glyphs)
    if (!glyph->face || cairo_font_face_status(face(glyph->face)) != CAIRO_STATUS_SUCCESS) return false;
  setSource(context, colour);
  for (std::size_t i = 0; i < line.glyphs.size();) {
    std::size_t end = i + 1;
    while (end < line.glyphs.size() && line.glyphs[end].glyph->face == line.glyphs[i].glyph->face) ++end;
    if (!showStretch(context, std::span(line.glyphs).subspan(i, end - i), face(line.glyphs[i].glyph->face), map) &&
        i == 0)
      return false;
    i = end;
  }
  return true;
}

}  // namespace atelier::render
