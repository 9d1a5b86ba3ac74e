// Laying out and measuring a line of text.
// Layout is in capital heights and does not depend on the height: one affine map does the rest.
#include "atelier/fonts/font.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/fonts/symbols.h"

namespace atelier::fonts {

namespace {

// Bars in capital heights: distance of the bar's middle from the baseline, and thickness.
constexpr double kUnderlineY = -0.2, kOverlineY = 1.2, kStrikeY = 0.5, kBarThickness = 0.08;
constexpr double kGreatestSlant = 85 * std::numbers::pi / 180;

void addBar(TextLine& line, bool wanted, double from, double middle) {
  if (!wanted || line.advance <= from) return;
  Box bar;
  bar.add(Pt{from, middle - kBarThickness / 2});
  bar.add(Pt{line.advance, middle + kBarThickness / 2});
  line.bars.push_back(bar);
}

}  // namespace

Path rectangle(const Box& box) {
  Path path;
  if (box.empty()) return path;
  path.moveTo({box.xMin, box.yMin});
  path.lineTo({box.xMax, box.yMin});
  path.lineTo({box.xMax, box.yMax});
  path.lineTo({box.xMin, box.yMax});
  path.close();
  return path;
}

Font::Font(const FontStyle& style)
    : face_(&findFace(style.file, style.bold, style.italic)),
      symbols_(hasSymbols(style.file)),
      widthFactor_(std::isfinite(style.widthFactor) && style.widthFactor != 0 ? style.widthFactor : 1),
      slant_(std::isfinite(style.oblique) ? std::tan(std::clamp(style.oblique, -kGreatestSlant, kGreatestSlant)) : 0) {}

TextLine Font::layout(std::string_view text) const { return layout(expandTextCodes(text)); }

TextLine Font::layout(std::span<const TextRun> runs) const {
  TextLine line;
  for (const TextRun& run : runs) {
    const double from = line.advance;
    for (const char32_t c : run.text) {
      const Glyph& glyph = face_->glyph(symbols_ ? symbolFor(c) : c);
      line.glyphs.push_back({&glyph, line.advance});
      line.advance += glyph.advance;
    }
    addBar(line, run.underline, from, kUnderlineY);
    addBar(line, run.overline, from, kOverlineY);
    addBar(line, run.strike, from, kStrikeY);
  }
  return line;
}

Affine Font::shape(double height) const {
  const double h = std::isfinite(height) && height > 0 ? height : 0;
  return {h * widthFactor_, 0, h * slant_, h, 0, 0};
}

double Font::advance(std::string_view text, double height) const { return shape(height).xx * layout(text).advance; }

TextExtents Font::extents(std::string_view text, double height) const { return extents(layout(text), height); }

TextExtents Font::extents(const TextLine& line, double height) const {
  const Affine map = shape(height);
  TextExtents out;
  out.advance = map.xx * line.advance;
  if (map.yy == 0) return out;
  for (const auto& [glyph, x] : line.glyphs) {
    const Affine placed = map * Affine::translation(x, 0);
    if (glyph->ink.empty()) continue;
    // Upright, the box of the glyph maps to the box of its image; slanted, only the outline tells.
    out.ink.add(map.xy == 0 ? rectangle(glyph->ink).bounds(placed) : glyph->outline.bounds(placed));
  }
  for (const Box& bar : line.bars) out.ink.add(rectangle(bar).bounds(map));
  return out;
}

Path Font::outline(std::string_view text, double height) const {
  const TextLine line = layout(text);
  const Affine map = shape(height);
  Path path;
  if (map.yy == 0) return path;
  for (const auto& [glyph, x] : line.glyphs) path.append(glyph->outline, map * Affine::translation(x, 0));
  for (const Box& bar : line.bars) path.append(rectangle(bar), map);
  return path;
}

}  // namespace atelier::fonts
