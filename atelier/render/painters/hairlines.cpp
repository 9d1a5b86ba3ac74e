// A line is clipped, then drawn pixel by pixel along its longer direction; a thick one is drawn several times, shifted.
// Steps are at most a pixel long: as many of them as a tile is wide touch two tiles in each direction at most.
#include "atelier/render/painters/hairlines.h"

#include <algorithm>
#include <cmath>

namespace atelier::render {
namespace {

constexpr double kFlatness = 0.5;  // pixels between a curve and its pieces
constexpr int kMostPieces = 500;
constexpr int kFraction = 32;  // fractional bits of a coordinate
constexpr int kTileBits = 5, kTile = 1 << kTileBits;

// Liang and Barsky: A New Concept and Method for Line Clipping, ACM Transactions on Graphics 3 (1984).
bool clipped(Pt& a, Pt& b, double width, double height) {
  const auto [left, right] = std::minmax(a.x, b.x);
  const auto [top, bottom] = std::minmax(a.y, b.y);
  if (right < 0 || bottom < 0 || left > width || top > height) return false;
  if (left >= 0 && top >= 0 && right <= width && bottom <= height) return true;
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

// The number of straight pieces for a curve; 1 when no part of it is visible.
// Wang: the distance of a cubic from n chords is at most 3/4 of the largest second difference over n^2.
int piecesOf(Pt from, const Pt* p, double width, double height) {
  const auto [left, right] = std::minmax({from.x, p[0].x, p[1].x, p[2].x});
  const auto [top, bottom] = std::minmax({from.y, p[0].y, p[1].y, p[2].y});
  if (!(right >= 0 && bottom >= 0 && left <= width && top <= height)) return 1;
  const Pt first = from - 2 * p[0] + p[1], second = p[0] - 2 * p[1] + p[2];
  const double most =
      std::sqrt(std::max(first.x * first.x + first.y * first.y, second.x * second.x + second.y * second.y));
  const double pieces = std::ceil(std::sqrt(0.75 * most / kFlatness));
  return pieces < kMostPieces ? std::max(1, static_cast<int>(pieces)) : kMostPieces;
}

// A colour 0xAARRGGBB, multiplied by alpha, put beneath the pixel's present one.
std::uint32_t below(std::uint32_t above, std::uint32_t value) {
  const std::uint32_t left = 255 - (above >> 24);
  std::uint32_t sum = 0;
  for (int shift = 0; shift < 32; shift += 8)
    sum |= ((above >> shift & 255) + ((value >> shift & 255) * left + 127) / 255) << shift;
  return sum;
}

}  // namespace

Hairlines::Hairlines(unsigned char* pixels, int width, int height, int stride)
    : pixels_(pixels), width_(width), height_(height), stride_(stride), tilesAcross_((width + kTile - 1) >> kTileBits) {
  for (int y = 0; y < height; y += kTile)
    for (int x = 0; x < width; x += kTile)
      open_.push_back(static_cast<std::uint16_t>(std::min(kTile, width - x) * std::min(kTile, height - y)));
}

std::size_t Hairlines::tile(Fixed column, Fixed row) const {
  return static_cast<std::size_t>((row >> kTileBits) * tilesAcross_ + (column >> kTileBits));
}

// Whether all pixels between two places less than a tile apart in each direction are opaque.
bool Hairlines::isHidden(Fixed x1, Fixed y1, Fixed x2, Fixed y2) const {
  const Fixed left = x1 >> kFraction, top = y1 >> kFraction, right = x2 >> kFraction, bottom = y2 >> kFraction;
  if (isOutside(left, top) || isOutside(right, bottom)) return false;
  return !open_[tile(left, top)] && !open_[tile(right, bottom)] && !open_[tile(left, bottom)] &&
         !open_[tile(right, top)];
}

void Hairlines::setPixels(Fixed x, Fixed y, Fixed xStep, Fixed yStep, int count) {
  for (int i = 0; i < count; ++i, x += xStep, y += yStep) {
    const Fixed column = x >> kFraction, row = y >> kFraction;
    if (isOutside(column, row)) continue;
    std::uint32_t& pixel = reinterpret_cast<std::uint32_t*>(pixels_ + row * stride_)[column];
    if (pixel >> 24 == 255) continue;
    pixel = pixel >> 24 ? below(pixel, value_) : value_;
    --open_[tile(column, row)];
  }
}

void Hairlines::line(Pt from, Pt to) {
  if (!std::isfinite(from.x + from.y + to.x + to.y) || !clipped(from, to, width_, height_)) return;
  const double dx = to.x - from.x, dy = to.y - from.y;
  const int steps = std::max(1, static_cast<int>(std::ceil(std::max(std::fabs(dx), std::fabs(dy)))));
  const bool steep = std::fabs(dy) > std::fabs(dx);
  const Fixed xStep = fixed(dx / steps), yStep = fixed(dy / steps);
  for (int beside = -(thickness_ - 1) / 2; beside <= thickness_ / 2; ++beside) {
    Fixed x = fixed(from.x + (steep ? beside : 0)), y = fixed(from.y + (steep ? 0 : beside));
    for (int left = steps + 1; left > 0; left -= kTile, x += kTile * xStep, y += kTile * yStep) {
      const int count = std::min(left, kTile);
      if (!isHidden(x, y, x + (count - 1) * xStep, y + (count - 1) * yStep)) setPixels(x, y, xStep, yStep, count);
    }
  }
}

void Hairlines::stroke(const Path& path, const Affine& map, const Colour& colour, int thickness) {
  value_ =
      0xFF000000U | static_cast<std::uint32_t>(colour.r) << 16 | static_cast<std::uint32_t>(colour.g) << 8 | colour.b;
  thickness_ = thickness;
  const Pt* p = path.points().data();
  Pt start{}, at{};
  for (const Path::Verb verb : path.verbs()) {
    switch (verb) {
      case Path::Verb::move: start = at = map(*p++); break;
      case Path::Verb::line: {
        const Pt next = map(*p++);
        line(at, next);
        at = next;
        break;
      }
      case Path::Verb::cubic: {
        const Pt c[3] = {map(p[0]), map(p[1]), map(p[2])};
        const int pieces = piecesOf(at, c, width_, height_);
        Pt before = at;
        for (int i = 1; i <= pieces; ++i) {
          const Pt next = cubicAt(at, c, static_cast<double>(i) / pieces);
          line(before, next);
          before = next;
        }
        at = c[2];
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
