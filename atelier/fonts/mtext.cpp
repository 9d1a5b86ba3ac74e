// Paragraphs into lines, lines into placed pieces.
// A first pass breaks tokens into lines; the second knows each line's width and sets it under the last one.
#include "atelier/fonts/mtext.h"

#include <algorithm>
#include <cmath>

namespace atelier::fonts {

namespace {

// Baseline to baseline at line spacing factor 1, in text heights (DXF reference, MTEXT group 44).
constexpr double kLinePitch = 5.0 / 3.0;
// A stacked fraction in text heights: the height of its parts, their baselines and the bar between them.
constexpr double kRounding = 1e-9;  // of heights
constexpr double kStackHeight = 0.7, kStackUpper = 0.65, kStackLower = -0.35, kStackBar = 0.5;

struct Placed {
  TextLine line;
  Font font;
  MTextFormat format;
  Pt offset;  // from the pen of its token
};

struct Item {
  std::vector<Placed> parts;
  double width = 0;
  bool space = false;
};

struct Line {
  std::vector<Item> items;
  double width = 0, tallest = 0;
  char32_t align = 0;
  bool opensColumn = false;
};

// Where a line stands: its column, and its base line below the top.
struct Place {
  std::size_t column = 0;
  double baseline = 0;
};

Placed place(const std::u32string& text, const MTextFormat& format, Pt offset) {
  const Font font(format.font);
  const TextRun run{text, format.underline, format.overline, format.strike};
  return {font.layout(std::span(&run, 1)), font, format, offset};
}

double widthOf(const Placed& part) { return part.font.shape(part.format.height).xx * part.line.advance; }

Item stackOf(const MTextToken& token) {
  Item item;
  if (token.divider == U'#' || token.divider == 0) {
    item.parts.push_back(place(token.text + (token.divider ? U"/" : U"") + token.lower, token.format, {}));
    item.width = widthOf(item.parts[0]);
    return item;
  }
  MTextFormat small = token.format;
  small.height *= kStackHeight;
  item.parts.push_back(place(token.text, small, {0, kStackUpper * token.format.height}));
  item.parts.push_back(place(token.lower, small, {0, kStackLower * token.format.height}));
  const double scale = item.parts[0].font.shape(small.height).xx;
  const double upper = widthOf(item.parts[0]), lower = widthOf(item.parts[1]);
  item.width = std::max(upper, lower);
  item.parts[0].offset.x = (item.width - upper) / 2;
  item.parts[1].offset.x = (item.width - lower) / 2;
  if (token.divider == U'/' && scale > 0) {
    MTextFormat plain = token.format;
    Placed bar = place({}, plain, {0, kStackBar * plain.height});
    Box box;
    box.add(Pt{});
    box.add(Pt{item.width / bar.font.shape(plain.height).xx, 0.05});
    bar.line.bars.push_back(box);
    item.parts.push_back(std::move(bar));
  }
  return item;
}

Item itemOf(const MTextToken& token) {
  if (token.kind == MTextToken::Kind::stack) return stackOf(token);
  Item item;
  item.parts.push_back(place(token.text, token.format, {}));
  item.width = widthOf(item.parts[0]);
  item.space = token.kind == MTextToken::Kind::space;
  return item;
}

// Spaces at the end of a line take no room.
void trim(Line& line) {
  double spaces = 0;
  for (auto i = line.items.rbegin(); i != line.items.rend() && i->space; ++i) spaces += i->width;
  line.width -= spaces;
}

std::vector<Line> breakLines(const std::vector<MTextToken>& tokens, const MTextStyle& style) {
  std::vector<Line> lines(1);
  double tallest = style.format.height;
  const auto start = [&] {
    trim(lines.back());
    if (lines.back().tallest <= 0) lines.back().tallest = tallest;
    lines.emplace_back();
  };
  for (const MTextToken& token : tokens) {
    tallest = token.format.height;
    lines.back().align = token.align;
    if (token.kind == MTextToken::Kind::newline || token.kind == MTextToken::Kind::column) {
      start();
      lines.back().opensColumn = token.kind == MTextToken::Kind::column;
      continue;
    }
    Item item = itemOf(token);
    // A word that overflows moves down, with what it is joined to (a word may be several formats).
    if (style.wrapWidth > 0 && !item.space && lines.back().width + item.width > style.wrapWidth) {
      auto& items = lines.back().items;
      const auto joined = std::find_if(items.rbegin(), items.rend(), [](const Item& i) { return i.space; }).base();
      if (joined != items.begin()) {
        std::vector<Item> carried(std::make_move_iterator(joined), std::make_move_iterator(items.end()));
        items.erase(joined, items.end());
        for (const Item& c : carried) lines.back().width -= c.width;
        start();
        for (Item& c : carried) lines.back().width += c.width, lines.back().items.push_back(std::move(c));
        lines.back().align = token.align;
      }
    }
    Line& line = lines.back();
    line.tallest = std::max(line.tallest, token.format.height);
    line.width += item.width;
    line.items.push_back(std::move(item));
  }
  trim(lines.back());
  if (lines.back().tallest <= 0) lines.back().tallest = tallest;
  return lines;
}

bool inColumns(const MTextStyle& style) { return style.columns.count != 1 && style.columns.width > 0; }

std::vector<Place> placesOf(const std::vector<Line>& lines, const MTextStyle& style) {
  const MTextColumns& columns = style.columns;
  const auto height = [&](std::size_t column) {
    return columns.heights.empty() ? 0 : columns.heights[std::min(column, columns.heights.size() - 1)];
  };
  std::vector<Place> places;
  Place at;
  bool first = true;
  for (const Line& line : lines) {
    const double pitch = kLinePitch * style.lineSpacing * (style.exactSpacing ? style.format.height : line.tallest);
    const double room = inColumns(style) ? height(at.column) : 0;
    const bool next = inColumns(style) && !first && (columns.count == 0 || at.column + 1 < columns.count) &&
                      (line.opensColumn || (room > 0 && pitch - at.baseline > room + kRounding * room));
    if (next) ++at.column, at.baseline = 0, first = true;
    at.baseline -= first ? line.tallest : pitch;
    first = false;
    places.push_back(at);
  }
  return places;
}

// The block's own left edge comes from the attachment, the line's place in its column from the alignment.
double leftOf(const Line& line, const Place& place, std::size_t columns, const MTextStyle& style) {
  const int attached = (style.attachment - 1) % 3;
  int side = attached;
  switch (line.align) {
    case U'l':
    case U'j':
    case U'd': side = 0; break;
    case U'c': side = 1; break;
    case U'r': side = 2; break;
    default: break;
  }
  const double width = std::max(style.wrapWidth, 0.0), step = width + style.columns.gutter;
  const auto rank = static_cast<double>(style.columns.fromRight ? columns - 1 - place.column : place.column);
  const double block = width + step * static_cast<double>(columns - 1);
  return -block * attached / 2 + step * rank + (width - line.width) * side / 2;
}

}  // namespace

MTextLayout layoutMText(std::string_view contents, const MTextStyle& given) {
  MTextStyle style = given;
  style.attachment = std::clamp(style.attachment, 1, 9);
  if (!std::isfinite(style.lineSpacing) || style.lineSpacing <= 0) style.lineSpacing = 1;
  if (inColumns(style)) style.wrapWidth = style.columns.width;
  const auto lines = breakLines(readMText(decodeUtf8(contents), style.format), style);
  const std::vector<Place> places = placesOf(lines, style);

  MTextLayout out;
  const std::size_t columns = inColumns(style) ? std::max(places.back().column + 1, style.columns.count) : 1;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    out.width = std::max(out.width, lines[i].width);
    out.height = std::max(out.height, -places[i].baseline);
  }
  const int row = (style.attachment - 1) / 3;  // of the attachment: top, middle, bottom
  const double lift = out.height * row / 2;

  for (std::size_t i = 0; i < lines.size(); ++i) {
    double x = leftOf(lines[i], places[i], columns, style);
    for (const Item& item : lines[i].items) {
      for (const Placed& part : item.parts) {
        const Affine at = Affine::translation(x + part.offset.x, places[i].baseline + lift + part.offset.y);
        const Box ink = part.font.extents(part.line, part.format.height).ink;
        if (!ink.empty()) out.ink.add(rectangle(ink).bounds(at));
        if (!part.line.glyphs.empty() || !part.line.bars.empty())
          out.pieces.push_back({part.line, at * part.font.shape(part.format.height), part.format});
      }
      x += item.width;
    }
  }
  return out;
}

}  // namespace atelier::fonts
