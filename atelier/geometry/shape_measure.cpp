// Lengths and areas of one piece.
// Elliptic and spline pieces are integrated span by span (Gauss-Legendre, with halves where that is not enough).
#include <boost/math/quadrature/gauss.hpp>
#include <cmath>

#include "atelier/geometry/shape.h"

namespace atelier {

namespace {

constexpr double kRelative = 1e-13;
constexpr unsigned kDeepest = 12;

template <class F>
double gauss(const F& f, double from, double to) {
  const double middle = from + (to - from) / 2, half = (to - from) / 2;
  return half * boost::math::quadrature::gauss<double, 20>::integrate([&](double x) { return f(middle + half * x); },
                                                                      -1.0, 1.0);
}

// Halved until the halves agree with the whole.
template <class F>
double halved(const F& f, double from, double to, double whole, double enough, unsigned depth) {
  const double middle = from + (to - from) / 2, left = gauss(f, from, middle), right = gauss(f, middle, to);
  if (depth == kDeepest || !(std::abs(left + right - whole) > enough)) return left + right;
  return halved(f, from, middle, left, enough, depth + 1) + halved(f, middle, to, right, enough, depth + 1);
}

template <class F>
double integral(const F& f, double from, double to) {
  if (!(from < to)) return 0;
  const double whole = gauss(f, from, to);
  return halved(f, from, to, whole, kRelative * std::abs(whole), 0);
}

// The piece moved to the origin: at survey coordinates differences lose the digits that the integrals need.
Bezier shifted(const Bezier& piece, const AcGePoint3d& origin) {
  Bezier out = piece;
  for (Weighted& p : out.points) p = {p.x - p.w * origin.x, p.y - p.w * origin.y, p.z - p.w * origin.z, p.w};
  return out;
}

// Calls f(piece, u0, u1) for each smooth span between two own parameters.
template <class F>
void eachSpan(const Spline& s, double from, double to, const F& f) {
  for (const Bezier& b : *s.pieces)
    if (b.to > from && b.from < to)
      f(b, std::max(0.0, (from - b.from) / (b.to - b.from)), std::min(1.0, (to - b.from) / (b.to - b.from)));
}

double lengthOf(const Bezier& piece, double u0, double u1) {
  const Bezier near = shifted(piece, piece.first());
  return integral([&](double u) { return near.derivative(u).length(); }, u0, u1);
}

bool isRound(const Elliptic& e) {
  const double uu = e.u.dotProduct(e.u);
  return std::abs(uu - e.v.dotProduct(e.v)) <= 1e-13 * uu && std::abs(e.u.dotProduct(e.v)) <= 1e-13 * uu;
}

double lengthOf(const Elliptic& e, double from, double to) {
  constexpr double kQuarter = 1.6;
  const int parts = std::max(1, static_cast<int>(std::ceil((to - from) / kQuarter)));
  double sum = 0;
  for (int i = 0; i < parts; ++i)
    sum += integral([&](double t) { return (e.v * std::cos(t) - e.u * std::sin(t)).length(); },
                    from + (to - from) * i / parts, from + (to - from) * (i + 1) / parts);
  return sum;
}

}  // namespace

double shapeLength(const Shape& shape, double from, double to) {
  if (const auto* s = std::get_if<Straight>(&shape)) return (to - from) * s->from.distanceTo(s->to);
  if (const auto* e = std::get_if<Elliptic>(&shape))
    return isRound(*e) ? (to - from) * e->u.length() : lengthOf(*e, from, to);
  double sum = 0;
  eachSpan(std::get<Spline>(shape), from, to,
           [&](const Bezier& b, double u0, double u1) { sum += lengthOf(b, u0, u1); });
  return sum;
}

double shapeParamAtLength(const Shape& shape, double length) {
  const double start = shapeStart(shape), end = shapeEnd(shape);
  if (const auto* s = std::get_if<Straight>(&shape)) {
    const double whole = s->from.distanceTo(s->to);
    return whole > 0 ? length / whole : 0;
  }
  double low = start, high = end, lowLength = 0;
  if (const auto* s = std::get_if<Spline>(&shape))
    for (const Bezier& b : *s->pieces) {
      const double span = lengthOf(b, 0, 1);
      if (lowLength + span >= length || &b == &s->pieces->back()) {
        high = b.to;
        break;
      }
      low = b.to, lowLength += span;
    }
  // Newton's method, kept inside the bracket.
  double t = low + (high - low) / 2, from = low, fromLength = lowLength;
  for (int i = 0; i < 60 && high > low; ++i) {
    const double here = t >= from ? fromLength + shapeLength(shape, from, t) : fromLength - shapeLength(shape, t, from);
    (here < length ? low : high) = t;
    from = t, fromLength = here;
    const double speed = shapeDerivative(shape, t).length();
    double next = t - (here - length) / speed;
    if (!(next > low && next < high)) next = low + (high - low) / 2;
    if (std::abs(next - t) <= 1e-15 * (std::abs(start) + std::abs(end))) break;
    t = next;
  }
  return t;
}

double shapeArea(const Shape& shape, const AcGePoint3d& o, const AcGeVector3d& normal) {
  if (const auto* s = std::get_if<Straight>(&shape))
    return (s->from - o).crossProduct(s->to - o).dotProduct(normal) / 2;
  if (const auto* e = std::get_if<Elliptic>(&shape)) {
    const AcGeVector3d along = shapePoint(shape, e->to) - shapePoint(shape, e->from);
    return ((e->centre - o).crossProduct(along) + e->u.crossProduct(e->v) * (e->to - e->from)).dotProduct(normal) / 2;
  }
  double sum = 0;
  eachSpan(std::get<Spline>(shape), shapeStart(shape), shapeEnd(shape), [&](const Bezier& b, double u0, double u1) {
    const Bezier near = shifted(b, o);
    const auto turning = [&](double u) {
      return near.at(u).asVector().crossProduct(near.derivative(u)).dotProduct(normal);
    };
    sum += integral(turning, u0, u1) / 2;
  });
  return sum;
}

}  // namespace atelier
