// A font file opened with FreeType: glyph outlines and advances, cached.
// Everything is in capital heights: the letter H reaches from 0 to 1, so that the text height is the scale.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "atelier/fonts/path.h"

namespace atelier::fonts {

class Face;

struct Glyph {
  Path outline;  // baseline at y = 0, pen at x = 0; fill with the nonzero rule
  Box ink;       // exact; empty for a space
  double advance = 0;
  const Face* face = nullptr;  // the face that has the glyph: not always the one that was asked
  unsigned index = 0;          // in the face
  char32_t character = 0;
};

// There is no usable font file; the text says which font was asked for.
class FontError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Faces live until the end of the program: references to faces and glyphs stay good. Safe to call from
// several threads.
class Face {
 public:
  // A font file on disk and the index of the face in it. Throws FontError when FreeType cannot read it.
  Face(const std::string& file, int index);
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  // The glyph of a code point. If this face lacks it, it comes from another installed font, at the same capital
  // height; if none has it, this face's mark for missing glyphs is given. Control characters are spaces.
  const Glyph& glyph(char32_t c) const;
  bool has(char32_t c) const;
  const std::string& file() const;

  // For embedding the font: the FT_Face, and the size of its em square in capital heights.
  void* native() const;
  double emInCapitals() const;

 private:
  struct Inside;
  std::unique_ptr<Inside> inside_;
};

// The face for a font as a text style names it: "txt", "isocp.shx", "arial.ttf", "C:\\F\\arial.ttf", or a
// family name. The file name is looked for among the installed fonts, then the family. osifont stands in for
// stroke fonts (.shx) and for what is not installed. Throws FontError only when no font at all is installed.
const Face& findFace(std::string_view font, bool bold = false, bool italic = false);

}  // namespace atelier::fonts
