// Tables of inks. Colours are found by what they look like, since a display list no longer knows their indices.
#include "atelier/render/shapes/inks.h"

namespace atelier::render {
namespace {

Inks forAll(const InkRow& row) {
  auto table = std::make_shared<InkTable>();
  table->setOthers(row);
  return table;
}

}  // namespace

std::uint32_t InkTable::keyOf(const Colour& colour) {
  constexpr std::uint32_t kKindAbove = 24;
  if (colour.kind != Colour::Kind::rgb) return static_cast<std::uint32_t>(colour.kind) << kKindAbove;
  return std::uint32_t{colour.r} << 16 | std::uint32_t{colour.g} << 8 | colour.b;
}

const InkRow* InkTable::rowOf(const Colour& drawn) const {
  if (drawn.kind == Colour::Kind::background) return nullptr;
  const auto row = rows_.find(keyOf(drawn));
  if (row != rows_.end()) return &row->second;
  return others_ ? &*others_ : nullptr;
}

Inks greyInks() { return forAll({{Ink::Kind::grey}, {Ink::Kind::grey}, {}}); }
Inks blackInks() { return forAll({{Ink::Kind::given}, {Ink::Kind::grey}, {}}); }

}  // namespace atelier::render
