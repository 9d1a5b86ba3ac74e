// Building and measuring paths.
// The box of a Bézier comes from the zeros of its derivative, a quadratic in each coordinate.
#include "atelier/fonts/path.h"

#include <cmath>

namespace atelier::fonts {

Affine Affine::rotation(double radians) {
  const double c = std::cos(radians), s = std::sin(radians);
  return {c, s, -s, c, 0, 0};
}

Affine Affine::operator*(const Affine& inner) const {
  const Pt x = turn({inner.xx, inner.yx}), y = turn({inner.xy, inner.yy}), o = (*this)({inner.x0, inner.y0});
  return {x.x, x.y, y.x, y.y, o.x, o.y};
}

void Box::add(Pt p) {
  if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
  xMin = std::fmin(xMin, p.x), xMax = std::fmax(xMax, p.x);
  yMin = std::fmin(yMin, p.y), yMax = std::fmax(yMax, p.y);
}

void Box::add(const Box& other) {
  if (other.empty()) return;
  add(Pt{other.xMin, other.yMin});
  add(Pt{other.xMax, other.yMax});
}

Box Box::mapped(const Affine& map) const {
  Box box;
  if (empty()) return box;
  for (const Pt corner : {Pt{xMin, yMin}, Pt{xMin, yMax}, Pt{xMax, yMin}, Pt{xMax, yMax}}) box.add(map(corner));
  return box;
}

void Path::moveTo(Pt p) {
  verbs_.push_back(Verb::move);
  points_.push_back(p);
}

void Path::lineTo(Pt p) {
  verbs_.push_back(verbs_.empty() ? Verb::move : Verb::line);
  points_.push_back(p);
}

void Path::cubicTo(Pt c1, Pt c2, Pt p) {
  if (verbs_.empty()) moveTo(c1);
  verbs_.push_back(Verb::cubic);
  points_.insert(points_.end(), {c1, c2, p});
}

void Path::quadTo(Pt c, Pt p) {
  const Pt from = verbs_.empty() ? c : current();
  cubicTo(from + 2.0 / 3.0 * (c - from), p + 2.0 / 3.0 * (c - p), p);
}

void Path::close() {
  if (!verbs_.empty() && verbs_.back() != Verb::close) verbs_.push_back(Verb::close);
}

void Path::append(const Path& other, const Affine& map) {
  // Indices, so that a path may be appended to itself.
  const std::size_t verbs = other.verbs_.size(), points = other.points_.size();
  for (std::size_t i = 0; i < verbs; ++i) verbs_.push_back(other.verbs_[i]);
  for (std::size_t i = 0; i < points; ++i) points_.push_back(map(other.points_[i]));
}

Path Path::mapped(const Affine& map) const {
  Path out(*this);
  for (Pt& p : out.points_) p = map(p);
  return out;
}

namespace {

double cubicAt(double a, double b, double c, double d, double t) {
  const double u = 1 - t;
  return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
}

// Parameters in ]0,1[ where the derivative of one coordinate is zero.
int extremeParameters(double a, double b, double c, double d, double out[2]) {
  const double k2 = d - a + 3 * (b - c), k1 = 2 * (a - 2 * b + c), k0 = b - a;
  int count = 0;
  const auto keep = [&](double t) {
    if (t > 0 && t < 1) out[count++] = t;
  };
  const double disc = k1 * k1 - 4 * k2 * k0;
  if (disc < 0) return 0;
  // The stable form of the quadratic formula; k2 near zero leaves the linear root k0 / q.
  const double q = -0.5 * (k1 + std::copysign(std::sqrt(disc), k1));
  if (k2 != 0) keep(q / k2);
  if (q != 0) keep(k0 / q);
  return count;
}

void addCubic(Box& box, Pt a, Pt b, Pt c, Pt d) {
  box.add(d);
  const auto at = [&](double t) { box.add(Pt{cubicAt(a.x, b.x, c.x, d.x, t), cubicAt(a.y, b.y, c.y, d.y, t)}); };
  double t[2];
  for (int n = extremeParameters(a.x, b.x, c.x, d.x, t); n > 0; --n) at(t[n - 1]);
  for (int n = extremeParameters(a.y, b.y, c.y, d.y, t); n > 0; --n) at(t[n - 1]);
}

}  // namespace

Box Path::bounds(const Affine& map) const {
  Box box;
  std::size_t i = 0;
  Pt last;
  for (const Verb verb : verbs_) {
    if (verb == Verb::close) continue;
    if (verb == Verb::cubic) {
      addCubic(box, last, map(points_[i]), map(points_[i + 1]), map(points_[i + 2]));
      i += 2;
    }
    last = map(points_[i++]);
    box.add(last);
  }
  return box;
}

}  // namespace atelier::fonts
