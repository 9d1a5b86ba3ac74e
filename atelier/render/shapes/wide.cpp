// Wide polylines as areas: one piece for each segment, all turning the same way so that overlaps stay filled.
// Straight segments share mitred corners; arcs and sharp joints end square, with a triangle on the outer
// side.
#include <cmath>
#include <optional>

#include "atelier/render/shapes/tessellate.h"

namespace atelier::render {

namespace {

// A mitre longer than this many half widths is bevelled.
constexpr double kMitreLimit = 4;

struct Segment {
  Pt from, to;
  double bulge, startHalf, endHalf;
  Pt out, in;  // unit directions of travel where it starts and where it ends
  bool straight() const { return std::abs(bulge) <= 1e-12; }
};

Pt leftOf(Pt direction) { return {-direction.y, direction.x}; }

std::vector<Segment> segmentsOf(std::span<const PolyVertex> vertices, bool closed) {
  std::vector<Segment> out;
  const std::size_t n = vertices.size();
  for (std::size_t i = 0; i < n && n > 1; ++i) {
    if (i + 1 == n && !closed) break;
    const PolyVertex &a = vertices[i], &b = vertices[(i + 1) % n];
    const Pt chord = b.at - a.at;
    const double length = std::hypot(chord.x, chord.y);
    if (length == 0 || !std::isfinite(length)) continue;
    const Pt along = 1 / length * chord;
    const double bulge = std::isfinite(a.bulge) ? a.bulge : 0, half = 2 * std::atan(bulge);
    out.push_back({a.at, b.at, bulge, a.startWidth / 2, a.endWidth / 2, Affine::rotation(-half)(along),
                   Affine::rotation(half)(along)});
  }
  return out;
}

// The corner on the left side (side = 1) or right side (-1) where two straight segments of one width meet.
std::optional<Pt> mitre(const Segment* before, const Segment* after, double side) {
  if (!before || !after || !before->straight() || !after->straight()) return std::nullopt;
  if (std::abs(before->endHalf - after->startHalf) > 1e-12 * std::abs(before->endHalf)) return std::nullopt;
  const Pt sum = leftOf(before->in) + leftOf(after->out);
  const double square = sum.x * sum.x + sum.y * sum.y;  // 2 + 2·cos of the deflection
  if (square * kMitreLimit * kMitreLimit < 4) return std::nullopt;
  return after->from + side * after->startHalf * 2 / square * sum;
}

Pt corner(const Segment& s, bool atEnd, double side) {
  return atEnd ? s.to + side * s.endHalf * leftOf(s.in) : s.from + side * s.startHalf * leftOf(s.out);
}

void addStraight(Path& out, const Segment& s, const Segment* before, const Segment* after) {
  out.moveTo(mitre(before, &s, 1).value_or(corner(s, false, 1)));
  out.lineTo(mitre(before, &s, -1).value_or(corner(s, false, -1)));
  out.lineTo(mitre(&s, after, -1).value_or(corner(s, true, -1)));
  out.lineTo(mitre(&s, after, 1).value_or(corner(s, true, 1)));
  out.close();
}

// The triangle between two square ends, on the outer side of a joint that has no mitre.
void addBevel(Path& out, const Segment& before, const Segment& after) {
  const double cross = before.in.x * after.out.y - before.in.y * after.out.x;
  const double side = cross > 0 ? -1 : 1;
  const Pt a = corner(before, true, side), b = corner(after, false, side);
  out.moveTo(after.from);
  out.lineTo(side > 0 ? b : a);
  out.lineTo(side > 0 ? a : b);
  out.close();
}

// A band of changing width along an arc, as chords fine enough for any paper: two degrees each.
void addBand(Path& out, const Segment& s) {
  const double sweep = 4 * std::atan(s.bulge), k = (1 - s.bulge * s.bulge) / (4 * s.bulge);
  const Pt chord = s.to - s.from, centre = s.from + (0.5 * chord + k * Pt{-chord.y, chord.x});
  const double radius = std::hypot(s.from.x - centre.x, s.from.y - centre.y);
  const double start = std::atan2(s.from.y - centre.y, s.from.x - centre.x);
  const auto at = [&](double t, double side) {
    const double half = s.startHalf + t * (s.endHalf - s.startHalf), angle = start + t * sweep;
    const double r = radius - side * std::copysign(half, s.bulge);  // left of the travel is inside a left turn
    return centre + r * Pt{std::cos(angle), std::sin(angle)};
  };
  if (s.startHalf == s.endHalf) {
    const double inside = radius - std::copysign(s.startHalf, s.bulge), outside = 2 * radius - inside;
    addArc(out, centre, {outside, 0}, {0, outside}, start, sweep, true);
    addArc(out, centre, {inside, 0}, {0, inside}, start + sweep, -sweep);
    return out.close();
  }
  const int parts = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / 0.035)));
  out.moveTo(at(0, -1));
  for (int i = 1; i <= parts; ++i) out.lineTo(at(static_cast<double>(i) / parts, -1));
  for (int i = parts; i >= 0; --i) out.lineTo(at(static_cast<double>(i) / parts, 1));
  out.close();
}

}  // namespace

bool isWide(std::span<const PolyVertex> vertices, bool closed) {
  const std::size_t segments = closed ? vertices.size() : vertices.size() - (vertices.empty() ? 0 : 1);
  for (const PolyVertex& v : vertices.first(segments))
    if (v.startWidth > 0 || v.endWidth > 0) return true;
  return false;
}

Path wideArea(std::span<const PolyVertex> vertices, bool closed) {
  Path out;
  const auto segments = segmentsOf(vertices, closed);
  const std::size_t n = segments.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Segment& s = segments[i];
    const Segment* before = i > 0 ? &segments[i - 1] : closed && n > 1 ? &segments[n - 1] : nullptr;
    const Segment* after = i + 1 < n ? &segments[i + 1] : closed && n > 1 ? &segments[0] : nullptr;
    if (s.startHalf <= 0 && s.endHalf <= 0) continue;
    if (s.straight()) addStraight(out, s, before, after);
    else addBand(out, s);
    if (after && !mitre(&s, after, 1)) addBevel(out, s, *after);
  }
  return out;
}

}  // namespace atelier::render
