// AutoLISP's functions for the pictures of dialogs: lines, areas and slides.
#include <algorithm>
#include <array>

#include "atelier/dialogs/slide.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/functions/dcl_session.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/file_object.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

Value startImage(Interpreter& in, Arguments arguments) {
  auto& drawing = dclSession(in).drawing;
  drawing.key = lisp::stringArgument(in, arguments[0]);
  drawing.strokes.clear();
  const dcl::TileDialog* dialog = dialogWithTile(in, arguments[0]);
  return dialog && dialog->picture(drawing.key) ? arguments[0] : lisp::nil;
}

// x y width height colour: a box; or the two ends of a line and its colour.
Value stroke(Interpreter& in, Arguments arguments, bool filled) {
  int v[5];
  for (std::size_t i = 0; i < 5; ++i) v[i] = static_cast<int>(lisp::numberArgument(in, arguments[i]));
  if (filled) v[2] += v[0], v[3] += v[1];
  dclSession(in).drawing.strokes.push_back({v[0], v[1], v[2], v[3], v[4], filled});
  return arguments[4];
}
Value fillImage(Interpreter& in, Arguments arguments) { return stroke(in, arguments, true); }
Value vectorImage(Interpreter& in, Arguments arguments) { return stroke(in, arguments, false); }

// "name" is a file name.sld, "library(name)" a slide of library.slb.
std::optional<dcl::Slide> slideNamed(Interpreter& in, const std::string& name) {
  const auto contents = [&](const std::string& file, const char* extension) {
    auto found = in.search().find(file);
    if (!found) found = in.search().find(file + extension);
    return found ? lisp::readWholeFile(*found).value_or(std::string()) : std::string();
  };
  const std::size_t open = name.find('(');
  if (open == name.npos || !name.ends_with(')')) return dcl::readSlide(contents(name, ".sld"));
  const std::string library = contents(name.substr(0, open), ".slb");
  return dcl::readSlide(dcl::slideInLibrary(library, name.substr(open + 1, name.size() - open - 2)));
}

using Strokes = std::vector<dialogues::Picture::Stroke>;

// An area as lines from left to right, one for each row of pixels.
void fillArea(Strokes& strokes, const std::vector<std::pair<int, int>>& corners, int colour) {
  const auto [lowest, highest] =
      std::ranges::minmax_element(corners, {}, [](const auto& corner) { return corner.second; });
  for (int row = lowest->second; row <= highest->second; ++row) {
    std::vector<int> crossed;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const auto [x1, y1] = corners[i];
      const auto [x2, y2] = corners[(i + 1) % corners.size()];
      if ((y1 <= row) != (y2 <= row)) crossed.push_back(x1 + (x2 - x1) * (row - y1) / (y2 - y1));
    }
    std::ranges::sort(crossed);
    for (std::size_t i = 0; i + 1 < crossed.size(); i += 2)
      strokes.push_back({crossed[i], row, crossed[i + 1], row, colour, false});
  }
}

// As large as the frame allows, in its middle; what was above is above.
void drawSlide(Strokes& strokes, const dcl::Slide& slide, int x, int y, int width, int height) {
  const double scale = std::min(static_cast<double>(width) / slide.width, static_cast<double>(height) / slide.height);
  const double left = x + (width - slide.width * scale) / 2, top = y + (height - slide.height * scale) / 2;
  for (const dcl::SlideShape& shape : slide.shapes) {
    std::vector<std::pair<int, int>> pixels;
    for (const dcl::SlidePoint& p : shape.points)
      pixels.emplace_back(static_cast<int>(left + p.x * scale),
                          static_cast<int>(top + (slide.height - 1 - p.y) * scale));
    if (shape.filled && pixels.size() > 2) fillArea(strokes, pixels, shape.colour);
    else if (pixels.size() == 2)
      strokes.push_back({pixels[0].first, pixels[0].second, pixels[1].first, pixels[1].second, shape.colour, false});
  }
}

// A slide that can't be read is a frame with a cross.
Value slideImage(Interpreter& in, Arguments arguments) {
  int v[4];
  for (std::size_t i = 0; i < 4; ++i) v[i] = static_cast<int>(lisp::numberArgument(in, arguments[i]));
  const int x = v[0], y = v[1], x2 = x + v[2] - 1, y2 = y + v[3] - 1;
  if (const auto slide = slideNamed(in, std::string(lisp::stringArgument(in, arguments[4])))) {
    drawSlide(dclSession(in).drawing.strokes, *slide, x, y, v[2], v[3]);
    return arguments[4];
  }
  constexpr int kGrey = 8;
  auto& strokes = dclSession(in).drawing.strokes;
  for (const auto& [a, b, c, d] :
       {std::array{x, y, x2, y}, {x2, y, x2, y2}, {x2, y2, x, y2}, {x, y2, x, y}, {x, y, x2, y2}, {x, y2, x2, y}})
    strokes.push_back({a, b, c, d, kGrey, false});
  return arguments[4];
}

Value endImage(Interpreter& in, Arguments) {
  auto& [key, strokes] = dclSession(in).drawing;
  auto& dialogs = dclSession(in).dialogs;
  if (!dialogs.empty() && dialogs.back()->has(key)) dialogs.back()->draw(key, strokes);
  strokes.clear();
  return lisp::nil;
}

// The last pixel, as programs count them.
Value imageSize(Interpreter& in, Value key, bool width) {
  const dcl::TileDialog* dialog = dialogWithTile(in, key);
  const dialogues::Picture* picture = dialog ? dialog->picture(std::string(key.text())) : nullptr;
  return picture ? Value::integer((width ? picture->width() : picture->height()) - 1) : lisp::nil;
}
Value imageWidth(Interpreter& in, Arguments arguments) { return imageSize(in, arguments[0], true); }
Value imageHeight(Interpreter& in, Arguments arguments) { return imageSize(in, arguments[0], false); }

constexpr lisp::Builtin kTable[] = {
    {"start_image", startImage, 1, 1, "(start_image clé)", "Commence à dessiner dans une image."},
    {"fill_image", fillImage, 5, 5, "(fill_image x y largeur hauteur couleur)",
     "Remplit un rectangle de l'image commencée."},
    {"vector_image", vectorImage, 5, 5, "(vector_image x1 y1 x2 y2 couleur)", "Un trait de l'image commencée."},
    {"slide_image", slideImage, 5, 5, "(slide_image x y largeur hauteur cliché)",
     "Un cliché (.sld, ou bibliothèque(cliché)) dans l'image commencée; un cadre s'il manque."},
    {"end_image", endImage, 0, 0, "(end_image)", "Montre ce qui a été dessiné."},
    {"dimx_tile", imageWidth, 1, 1, "(dimx_tile clé)", "Le dernier pixel d'une image en largeur, ou nil."},
    {"dimy_tile", imageHeight, 1, 1, "(dimy_tile clé)", "Le dernier pixel d'une image en hauteur, ou nil."},
};

}  // namespace

std::span<const lisp::Builtin> dclImageBuiltins() { return kTable; }

}  // namespace atelier
