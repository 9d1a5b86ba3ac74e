// The colour index as a formula: hue by tens, five levels, each pure or faded by two thirds.
// Hue h (0..23) is at 15 degrees times h on the colour circle; levels are those of the usual table.
#include "atelier/render/scene/colours.h"

#include <array>
#include <cstdlib>

namespace atelier::render {

namespace {

constexpr std::array<int, 5> kLevels{255, 189, 129, 104, 79};
constexpr std::array<std::uint8_t, 6> kGreys{51, 80, 105, 130, 190, 255};
constexpr std::array<std::uint32_t, 10> kNamed{0,        0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                               0x0000FF, 0xFF00FF, 0,        0x414141, 0x808080};

// Level 0..255 of one primary at a hue: full within 60 degrees of the primary, none from 120 degrees on.
int primaryLevel(int hue, int primary) {
  const int away = std::abs((hue - primary + 36) % 24 - 12);  // steps of 15 degrees
  return away <= 4 ? 255 : away >= 8 ? 0 : 255 * (8 - away) / 4;
}

int distance(const Colour& a, const Colour& b) {
  return std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b);
}

}  // namespace

int indexOf(const Colour& colour) {
  int nearest = 7;
  if (colour.kind != Colour::Kind::rgb) return nearest;
  for (int i = 1; i < 256; ++i)
    if (i != 7 && (nearest == 7 || distance(aciColour(i), colour) < distance(aciColour(nearest), colour))) nearest = i;
  return nearest;
}

Colour trueColour(std::uint32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8), static_cast<std::uint8_t>(rgb)};
}

Colour trueColour(std::uint32_t rgb, std::int64_t index) {
  constexpr std::uint32_t kWhite = 0xFFFFFF;
  constexpr std::int64_t kForegroundIndex = 7, kByLayer = 256;
  const bool white = (rgb & kWhite) == kWhite && (std::abs(index) == kForegroundIndex || index == kByLayer);
  return white ? kForeground : trueColour(rgb);
}

Colour aciColour(int index) {
  if (index < 1 || index > 255 || index == 7) return kForeground;
  if (index < 10) return trueColour(kNamed[static_cast<std::size_t>(index)]);
  if (index >= 250) {
    const std::uint8_t g = kGreys[static_cast<std::size_t>(index - 250)];
    return {g, g, g};
  }
  const int hue = index / 10 - 1, shade = index % 10, level = kLevels[static_cast<std::size_t>(shade / 2)];
  const auto channel = [&](int primary) {
    const int pure = level * primaryLevel(hue, primary) / 255;
    return static_cast<std::uint8_t>(shade % 2 ? (2 * level + pure) / 3 : pure);
  };
  return {channel(0), channel(8), channel(16)};
}

}  // namespace atelier::render
