// FreeType: opening a face, reading outlines in font units, scaling them to capital heights.
// Outlines are loaded unscaled and unhinted, so that metrics are exact at any text height.
#include "atelier/fonts/face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <unordered_map>

#include "atelier/fonts/faces.h"

namespace atelier::fonts {

namespace {

// Never released: static objects may use faces until the program ends.
FT_Library library() {
  static const FT_Library handle = [] {
    FT_Library made = nullptr;
    if (FT_Init_FreeType(&made) != 0) throw FontError("FreeType n'a pas pu démarrer");
    return made;
  }();
  return handle;
}

struct Decomposer {
  Path* path;
  double scale;
  Pt at(const FT_Vector* v) const { return {scale * static_cast<double>(v->x), scale * static_cast<double>(v->y)}; }
  static Decomposer& of(void* user) { return *static_cast<Decomposer*>(user); }
};

int onMove(const FT_Vector* to, void* user) {
  auto& d = Decomposer::of(user);
  d.path->close();
  d.path->moveTo(d.at(to));
  return 0;
}
int onLine(const FT_Vector* to, void* user) {
  auto& d = Decomposer::of(user);
  d.path->lineTo(d.at(to));
  return 0;
}
int onConic(const FT_Vector* c, const FT_Vector* to, void* user) {
  auto& d = Decomposer::of(user);
  d.path->quadTo(d.at(c), d.at(to));
  return 0;
}
int onCubic(const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* user) {
  auto& d = Decomposer::of(user);
  d.path->cubicTo(d.at(c1), d.at(c2), d.at(to));
  return 0;
}

Path outlineOf(FT_Outline& outline, double scale) {
  static constexpr FT_Outline_Funcs kFunctions{onMove, onLine, onConic, onCubic, 0, 0};
  Path path;
  Decomposer user{&path, scale};
  FT_Outline_Decompose(&outline, &kFunctions, &user);
  path.close();
  return path;
}

Glyph loadGlyph(FT_Face face, FT_UInt index, double scale) {
  Glyph glyph;
  if (FT_Load_Glyph(face, index, FT_LOAD_NO_SCALE) != 0) return glyph;
  glyph.advance = scale * static_cast<double>(face->glyph->metrics.horiAdvance);
  if (face->glyph->format == FT_GLYPH_FORMAT_OUTLINE) glyph.outline = outlineOf(face->glyph->outline, scale);
  glyph.ink = glyph.outline.bounds();
  return glyph;
}

// Font units to capital heights, from the outline of H; a font without capitals counts 0.7 em.
double capitalScale(FT_Face face) {
  const Glyph h = loadGlyph(face, FT_Get_Char_Index(face, 'H'), 1.0);
  const double capital = h.ink.empty() ? 0 : h.ink.yMax;
  return 1.0 / (capital > 0 ? capital : 0.7 * face->units_per_EM);
}

}  // namespace

struct Face::Inside {
  std::string file;
  FT_Face face = nullptr;
  double scale = 1;
  std::unordered_map<char32_t, Glyph> glyphs;
};

Face::Face(const std::string& file, int index) : inside_(std::make_unique<Inside>()) {
  const std::lock_guard guard(fontLock());
  inside_->file = file;
  if (FT_New_Face(library(), file.c_str(), index, &inside_->face) != 0) throw FontError("police illisible: " + file);
  if (!FT_IS_SCALABLE(inside_->face)) {
    FT_Done_Face(inside_->face);
    throw FontError("police sans contours: " + file);
  }
  inside_->scale = capitalScale(inside_->face);
}

Face::~Face() {
  const std::lock_guard guard(fontLock());
  FT_Done_Face(inside_->face);
}

const std::string& Face::file() const { return inside_->file; }
void* Face::native() const { return inside_->face; }
double Face::emInCapitals() const { return inside_->scale * inside_->face->units_per_EM; }

bool Face::has(char32_t c) const {
  const std::lock_guard guard(fontLock());
  return FT_Get_Char_Index(inside_->face, c) != 0;
}

const Glyph& Face::glyph(char32_t c) const {
  const std::lock_guard guard(fontLock());
  if (c < 0x20 || c == 0x7F) c = U' ';
  auto& glyphs = inside_->glyphs;
  if (const auto known = glyphs.find(c); known != glyphs.end()) return known->second;
  const FT_UInt index = FT_Get_Char_Index(inside_->face, c);
  const Face* other = index == 0 ? faceWith(c) : nullptr;
  Glyph made = other ? other->glyph(c) : loadGlyph(inside_->face, index, inside_->scale);
  if (!other) made.face = this, made.index = index, made.character = c;
  return glyphs.emplace(c, std::move(made)).first->second;
}

}  // namespace atelier::fonts
