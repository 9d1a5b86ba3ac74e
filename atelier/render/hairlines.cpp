// A line is clipped, then stepped through its longer direction; a thick one is set several times beside itself.
#include "atelier/render/hairlines.h"

#include <algorithm>
#include <cmath>

namespace atelier::render {
namespace {

constexpr double kPixelsPerPiece = 6;  // of a flattened curve
constexpr int kMostPieces = 64;
constexpr int kFraction = 32;  // bits of a coordinate behind the point

// Liang and Barsky: A New Concept and Method for Line Clipping, ACM Transactions on Graphics 3 (1984).
bool clipped(Pt& a, Pt& b, double width, double height) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  double from = 0, to = 1;
  const double edges[4][2] = {{-dx, a.x}, {dx, width - a.x}, {-dy, a.y}, {dy, height - a.y}};
  for (const auto& [p, q] : edges) {
    if (p == 0) {
      if (q < 0) return false;
    } else if (p < 0) {
      from = std::max(from, q / p);
    } else {
      to = std::min(to, q / p);
    }
  }
  if (!(from <= to)) return false;
  b = {a.x + to * dx, a.y + to * dy};
  a = {a.x + from * dx, a.y + from * dy};
  return true;
}

std::int64_t fixed(double value) {
  return static_cast<std::int64_t>(std::floor(value * (std::int64_t{1} << kFraction)));
}

Pt cubicAt(Pt from, const Pt* p, double t) {
  const double s = 1 - t, b0 = s * s * s, b1 = 3 * s * s * t, b2 = 3 * s * t * t, b3 = t * t * t;
  return {b0 * from.x + b1 * p[0].x + b2 * p[1].x + b3 * p[2].x, b0 * from.y + b1 * p[0].y + b2 * p[1].y + b3 * p[2].y};
}

}  // namespace

void Hairlines::line(Pt from, Pt to) {
  if (!std::isfinite(from.x + from.y + to.x + to.y) || !clipped(from, to, width_, height_)) return;
  const double dx = to.x - from.x, dy = to.y - from.y;
  const int steps = std::max(1, static_cast<int>(std::ceil(std::max(std::fabs(dx), std::fabs(dy)))));
  const bool steep = std::fabs(dy) > std::fabs(dx);
  const std::int64_t xStep = fixed(dx / steps), yStep = fixed(dy / steps);
  for (int beside = -(thickness_ - 1) / 2; beside <= thickness_ / 2; ++beside) {
    std::int64_t x = fixed(from.x + (steep ? beside : 0)), y = fixed(from.y + (steep ? 0 : beside));
    for (int i = 0; i <= steps; ++i, x += xStep, y += yStep) {
      const std::int64_t column = x >> kFraction, row = y >> kFraction;
      if (column >= 0 && row >= 0 && column < width_ && row < height_)
        reinterpret_cast<std::uint32_t*>(pixels_ + row * stride_)[column] = value_;
    }
  }
}

void Hairlines::stroke(const Path& path, const Colour& colour, int thickness) {
  value_ =
      0xFF000000U | static_cast<std::uint32_t>(colour.r) << 16 | static_cast<std::uint32_t>(colour.g) << 8 | colour.b;
  thickness_ = thickness;
  const Pt* p = path.points().data();
  Pt start{}, at{};
  for (const Path::Verb verb : path.verbs()) {
    switch (verb) {
      case Path::Verb::move: start = at = *p++; break;
      case Path::Verb::line:
        line(at, *p);
        at = *p++;
        break;
      case Path::Verb::cubic: {
        const double length = std::hypot(p[0].x - at.x, p[0].y - at.y) + std::hypot(p[1].x - p[0].x, p[1].y - p[0].y) +
                              std::hypot(p[2].x - p[1].x, p[2].y - p[1].y);
        const int pieces = length < kMostPieces * kPixelsPerPiece
                               ? std::max(2, static_cast<int>(length / kPixelsPerPiece))
                               : kMostPieces;
        Pt before = at;
        for (int i = 1; i <= pieces; ++i) {
          const Pt next = cubicAt(at, p, static_cast<double>(i) / pieces);
          line(before, next);
          before = next;
        }
        at = p[2];
        p += 3;
        break;
      }
      case Path::Verb::close:
        line(at, start);
        at = start;
        break;
    }
  }
}

}  // namespace atelier::render
