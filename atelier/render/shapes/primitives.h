// The display list: the picture of a drawing in plan, as strokes, fills and glyph runs in drawing units.
// A painter paints it in order; each primitive names the object it comes from, for picking.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "atelier/fonts/font.h"
#include "atelier/fonts/path.h"

namespace atelier::render {

using fonts::Affine;
using fonts::Box;
using fonts::Path;
using fonts::Pt;

// The two screen-dependent colours are resolved by the painter: colour 7 is black on paper, white on a dark
// screen.
struct Colour {
  enum class Kind : std::uint8_t { rgb, foreground, background };
  std::uint8_t r = 0, g = 0, b = 0;
  Kind kind = Kind::rgb;
  std::uint8_t alpha = 255;  // 0 unseen, 255 opaque
  bool operator==(const Colour&) const = default;
};
constexpr Colour kForeground{0, 0, 0, Colour::Kind::foreground};
constexpr Colour kBackground{255, 255, 255, Colour::Kind::background};

// Alternating dashes and gaps in drawing units, a dash first; a dash of 0 is a dot. Shared by all users.
using Dashes = std::shared_ptr<const std::vector<double>>;

struct Pen {
  Colour colour = kForeground;
  double weightMm = 0.25;  // on paper
  Dashes dashes;           // null: continuous
};

struct Stroke {
  Path path;
  Pen pen;
};

// Colours along a line, in drawing units; before its start and behind its end they go on.
struct Gradient {
  struct Stop {
    double at;  // 0 start, 1 end
    Colour colour;
  };
  Pt from, to;
  std::vector<Stop> stops;
};

struct Fill {
  Path path;
  Colour colour = kForeground;
  bool evenOdd = true;                            // else the nonzero rule
  std::shared_ptr<const Gradient> gradient = {};  // in the place of the colour
};

// Pixels of 32 bits, 0xAARRGGBB in the machine's byte order, colours multiplied by their alpha, row after row from the top.
struct Picture {
  int width = 0, height = 0;
  std::vector<std::uint32_t> pixels;
  std::string jpeg;  // the same picture as a JPEG file, when it comes from one: a PDF holds it as it is
};

// A picture; `map` maps pixels, from the upper left corner downwards, to drawing units.
struct Raster {
  std::shared_ptr<const Picture> picture;
  Affine map;
  Path shown;  // the area in which it is seen, even-odd
  std::uint8_t alpha = 255;
};

// Glyphs of one line and its bars; `map` maps the line's capital heights to drawing units.
struct GlyphRun {
  fonts::TextLine line;
  Affine map;
  Colour colour = kForeground;
};

// A line with no end or only one: the painter cuts it to the visible part.
struct Unbounded {
  Pt base, direction;
  bool bothWays = true;
  Pen pen;
};

// A point with its mark, as system variable PDMODE says: 0 dot, 1 none, 2 plus, 3 cross, 4 tick upwards;
// 32 added: in a circle, 64 added: in a square.
struct Dot {
  Pt at;
  Pen pen;
  int mode = 0;
  double size = 0;  // of the mark, drawing units; 0: a fixed size on paper
};

using Shape = std::variant<Stroke, Fill, GlyphRun, Unbounded, Dot, Raster>;
Colour colourOf(const Shape& shape);  // of a picture: some colour

// An area outside which nothing is seen, and those around it.
struct Clip {
  Path area;  // even-odd
  std::shared_ptr<const Clip> outer;
  Box box() const;
};

struct Primitive {
  std::uint64_t source = 0;  // handle of the object in the drawing (for a block, of the reference)
  Box box;                   // drawing units, without line weight; empty for Unbounded
  Shape shape;
  std::shared_ptr<const Clip> clip = {};  // null: all is seen
};
// With its box computed; none for a shape with nothing to draw, outside its clip or with a coordinate that isn't finite.
std::optional<Primitive> primitive(std::uint64_t source, Shape shape, std::shared_ptr<const Clip> clip = {});

class DisplayList {
 public:
  void add(std::uint64_t source, Shape shape);  // see primitive()
  void add(Primitive&& item);

  const std::vector<Primitive>& items() const { return items_; }
  // Of all primitives that have an end.
  const Box& bounds() const { return bounds_; }
  // What can't be shown, for the user (French), each sentence once.
  std::vector<std::string> warnings;

 private:
  std::vector<Primitive> items_;
  Box bounds_;
};

}  // namespace atelier::render
