// Contrast by luminance, and mixing until there is enough.
#include "atelier/render/painters/legible.h"

#include <algorithm>
#include <cmath>

namespace atelier::render {
namespace {

constexpr double kFull = 255;

double linear(std::uint8_t value) {
  const double part = value / kFull;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const Colour& c) { return 0.2126 * linear(c.r) + 0.7152 * linear(c.g) + 0.0722 * linear(c.b); }

Colour mixed(const Colour& colour, double towards, double share) {
  const auto mix = [&](std::uint8_t value) {
    return static_cast<std::uint8_t>(std::lround(value + share * (towards - value)));
  };
  Colour made = colour;
  made.r = mix(colour.r), made.g = mix(colour.g), made.b = mix(colour.b);
  return made;
}

}  // namespace

double contrast(const Colour& a, const Colour& b) {
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Colour legible(const Colour& colour, const Colour& ground, double least) {
  if (contrast(colour, ground) >= least) return colour;
  constexpr int kSteps = 20;
  const Colour white{255, 255, 255}, black{0, 0, 0};
  const double towards = contrast(white, ground) >= contrast(black, ground) ? kFull : 0;
  Colour made = colour;
  for (int step = 1; step <= kSteps && contrast(made, ground) < least; ++step)
    made = mixed(colour, towards, static_cast<double>(step) / kSteps);
  return made;
}

}  // namespace atelier::render
