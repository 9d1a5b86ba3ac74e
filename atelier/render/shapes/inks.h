// What a plot makes of the drawing's colours and line weights: a table by colour.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// What becomes of a colour: itself, a grey as light as it is, or another one.
struct Ink {
  enum class Kind : std::uint8_t { asDrawn, grey, given } kind = Kind::asDrawn;
  Colour colour = kForeground;  // the given one
};

struct InkRow {
  Ink line, area;                  // lines and texts; hatches and fills
  std::optional<double> weightMm;  // of lines; none: as drawn
};

class InkTable {
 public:
  // Of two rows for a colour the later one holds; transparency makes no difference.
  void set(const Colour& drawn, const InkRow& row) { rows_[keyOf(drawn)] = row; }
  void setOthers(const InkRow& row) { others_ = row; }
  // Null: as drawn.
  const InkRow* rowOf(const Colour& drawn) const;

 private:
  static std::uint32_t keyOf(const Colour& colour);
  std::map<std::uint32_t, InkRow> rows_;
  std::optional<InkRow> others_;
};

// Null: everything as drawn. What hides, in the colour of the paper, and pictures are never changed.
using Inks = std::shared_ptr<const InkTable>;
Inks greyInks();   // grey as light as the colours
Inks blackInks();  // lines and texts black, areas grey

}  // namespace atelier::render
