// Lines are cut after Liang and Barsky: the parameter range shrinks at each side of the box.
// Areas are cut after Sutherland and Hodgman: one side of the box after the other.
#include "atelier/render/shapes/clip_path.h"

#include <array>
#include <cmath>
#include <limits>

namespace atelier::render {

namespace {

constexpr int kDeepest = 24;  // halvings of a curve

bool clipRange(Pt base, Pt direction, const Box& box, double& first, double& last) {
  const auto side = [&](double from, double along, double low, double high) {
    if (along == 0) return low <= from && from <= high;
    const double a = (low - from) / along, b = (high - from) / along;
    first = std::fmax(first, std::fmin(a, b));
    last = std::fmin(last, std::fmax(a, b));
    return true;
  };
  return !box.empty() && side(base.x, direction.x, box.xMin, box.xMax) &&
         side(base.y, direction.y, box.yMin, box.yMax) && first < last;
}

bool samePoint(Pt a, Pt b) { return a.x == b.x && a.y == b.y; }

struct Cubic {
  Pt a, b, c, d;
  Box hull() const {
    Box box;
    for (const Pt p : {a, b, c, d}) box.add(p);
    return box;
  }
  std::array<Cubic, 2> halves() const {
    const auto middle = [](Pt p, Pt q) { return 0.5 * (p + q); };
    const Pt ab = middle(a, b), bc = middle(b, c), cd = middle(c, d), abc = middle(ab, bc), bcd = middle(bc, cd);
    const Pt m = middle(abc, bcd);
    return {Cubic{a, ab, abc, m}, Cubic{m, bcd, cd, d}};
  }
  // Bound on the distance to the chord.
  double flatness() const {
    const Pt u = b - (2.0 / 3 * a + 1.0 / 3 * d), v = c - (1.0 / 3 * a + 2.0 / 3 * d);
    return std::fmax(std::hypot(u.x, u.y), std::hypot(v.x, v.y));
  }
};

bool inside(const Box& inner, const Box& box) {
  return inner.xMin >= box.xMin && inner.xMax <= box.xMax && inner.yMin >= box.yMin && inner.yMax <= box.yMax;
}

struct StrokeClipper {
  const Box& box;
  Path out;

  void from(Pt p) {
    if (out.empty() || !samePoint(out.current(), p)) out.moveTo(p);
  }
  void line(Pt a, Pt b) {
    double first = 0, last = 1;
    if (!clipRange(a, b - a, box, first, last)) return;
    from(first > 0 ? a + first * (b - a) : a);
    out.lineTo(last < 1 ? a + last * (b - a) : b);
  }
  void curve(const Cubic& k, int depth = 0) {
    const Box hull = k.hull();
    if (!hull.meets(box)) return;
    if (inside(hull, box)) {
      from(k.a);
      out.cubicTo(k.b, k.c, k.d);
    } else if (depth == kDeepest) {
      line(k.a, k.d);
    } else {
      for (const Cubic& half : k.halves()) curve(half, depth + 1);
    }
  }
};

using Ring = std::vector<Pt>;

void flatten(Ring& ring, const Cubic& k, const Box& box, double tolerance, int depth = 0) {
  if (depth == kDeepest || k.flatness() <= tolerance || !k.hull().meets(box)) return ring.push_back(k.d);
  for (const Cubic& half : k.halves()) flatten(ring, half, box, tolerance, depth + 1);
}

// Keeps the side where sign·(coordinate − limit) is not negative.
Ring cutSide(const Ring& ring, double Pt::*coordinate, double limit, double sign) {
  Ring out;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Pt a = ring[i], b = ring[(i + 1) % ring.size()];
    const double da = sign * (a.*coordinate - limit), db = sign * (b.*coordinate - limit);
    if (da >= 0) out.push_back(a);
    if ((da < 0) != (db < 0)) {
      Pt cut = a + da / (da - db) * (b - a);
      cut.*coordinate = limit;
      out.push_back(cut);
    }
  }
  return out;
}

void addRing(Path& out, Ring ring, const Box& box) {
  ring = cutSide(ring, &Pt::x, box.xMin, 1);
  ring = cutSide(ring, &Pt::x, box.xMax, -1);
  ring = cutSide(ring, &Pt::y, box.yMin, 1);
  ring = cutSide(ring, &Pt::y, box.yMax, -1);
  if (ring.size() < 3) return;
  out.moveTo(ring[0]);
  for (std::size_t i = 1; i < ring.size(); ++i) out.lineTo(ring[i]);
  out.close();
}

// Calls line(a, b), curve(cubic) and start(p) along a path, closing segments included.
template <class Start, class Line, class Curve>
void walk(const Path& path, Start start, Line line, Curve curve) {
  const auto points = path.points();
  std::size_t i = 0;
  Pt first, last;
  for (const Path::Verb verb : path.verbs()) {
    switch (verb) {
      case Path::Verb::move: start(first = last = points[i++]); break;
      case Path::Verb::line: line(last, points[i]), last = points[i++]; break;
      case Path::Verb::close: line(last, first), last = first; break;
      case Path::Verb::cubic:
        curve(Cubic{last, points[i], points[i + 1], points[i + 2]});
        last = points[i + 2], i += 3;
        break;
    }
  }
}

}  // namespace

bool clip(const Unbounded& line, const Box& box, Pt& from, Pt& to) {
  double first = line.bothWays ? -std::numeric_limits<double>::infinity() : 0;
  double last = std::numeric_limits<double>::infinity();
  if (!clipRange(line.base, line.direction, box, first, last)) return false;
  if (!std::isfinite(first) || !std::isfinite(last)) return false;
  from = line.base + first * line.direction;
  to = line.base + last * line.direction;
  return true;
}

Path clipStroke(const Path& path, const Box& box) {
  StrokeClipper clipper{box, {}};
  walk(
      path, [](Pt) {}, [&](Pt a, Pt b) { clipper.line(a, b); }, [&](const Cubic& k) { clipper.curve(k); });
  return std::move(clipper.out);
}

Path clipFill(const Path& path, const Box& box, double tolerance) {
  Path out;
  Ring ring;
  const auto finish = [&] {
    addRing(out, std::move(ring), box);
    ring.clear();
  };
  walk(
      path, [&](Pt p) { finish(), ring.push_back(p); }, [&](Pt, Pt b) { ring.push_back(b); },
      [&](const Cubic& k) { flatten(ring, k, box, tolerance); });
  finish();
  return out;
}

}  // namespace atelier::render
