// Evaluation and subdivision of Bézier pieces, and how curves become pieces.
// De Casteljau's construction throughout: it is stable at any degree.
#include "atelier/geometry/bezier.h"

#include <GeomConvert_BSplineCurveToBezierCurve.hxx>
#include <Geom_BezierCurve.hxx>
#include <Standard_Failure.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <array>
#include <numbers>

#include "atelier/geometry/occt_curve.h"

namespace atelier {

namespace {

constexpr std::size_t kMostPoints = 32;  // above the greatest degree
using Polygon = std::array<Weighted, kMostPoints>;

Weighted mix(const Weighted& a, const Weighted& b, double u) {
  const double s = 1 - u;
  return {s * a.x + u * b.x, s * a.y + u * b.y, s * a.z + u * b.z, s * a.w + u * b.w};
}
Weighted difference(const Weighted& a, const Weighted& b) { return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w}; }
AcGeVector3d vectorOf(const Weighted& p) { return {p.x, p.y, p.z}; }

// Runs the construction until `left` points remain.
void reduce(const std::vector<Weighted>& from, double u, std::size_t left, Polygon& out) {
  std::copy(from.begin(), from.end(), out.begin());
  for (std::size_t n = from.size(); n > left; --n)
    for (std::size_t i = 0; i + 1 < n; ++i) out[i] = mix(out[i], out[i + 1], u);
}

}  // namespace

AcGePoint3d Bezier::at(double u) const {
  Polygon p;
  reduce(points, u, 1, p);
  return cartesian(p[0]);
}

AcGeVector3d Bezier::derivative(double u) const {
  if (points.size() < 2) return {};
  Polygon p;
  reduce(points, u, 2, p);
  const Weighted value = mix(p[0], p[1], u), slope = difference(p[1], p[0]);
  const double n = static_cast<double>(points.size() - 1);
  return (vectorOf(slope) - cartesian(value).asVector() * slope.w) * (n / value.w);
}

AcGeVector3d Bezier::second(double u) const {
  if (points.size() < 3) {  // a straight rational piece still speeds up and slows down
    if (points.size() < 2) return {};
    const Weighted value = mix(points[0], points[1], u);
    return derivative(u) * (-2 * (points[1].w - points[0].w) / value.w);
  }
  Polygon p;
  reduce(points, u, 3, p);
  const double n = static_cast<double>(points.size() - 1);
  const Weighted a = mix(p[0], p[1], u), b = mix(p[1], p[2], u), value = mix(a, b, u), slope = difference(b, a);
  const Weighted bow = difference(difference(p[2], p[1]), difference(p[1], p[0]));
  const AcGeVector3d c = cartesian(value).asVector(), d = derivative(u);
  return (vectorOf(bow) * (n * (n - 1)) - d * (2 * n * slope.w) - c * (n * (n - 1) * bow.w)) / value.w;
}

Box Bezier::box() const {
  Box out;
  for (const Weighted& p : points) out.add(cartesian(p));
  return out;
}

namespace {

bool holds(const Box& outer, const Box& inner) {
  for (int i = 0; i < 3; ++i)
    if (inner.low[i] < outer.low[i] || inner.high[i] > outer.high[i]) return false;
  return true;
}

// Halves the piece as long as its control points lie outside the box and it isn't nearly flat.
void grow(const Bezier& piece, Box& box, double hair, int depth) {
  box.add(piece.first());
  box.add(piece.last());
  const Box hull = piece.box();
  if (holds(box, hull)) return;
  if (depth == 0 || piece.bend() <= hair) return box.add(hull);
  Bezier left, right;
  piece.halve(left, right);
  grow(left, box, hair, depth - 1);
  grow(right, box, hair, depth - 1);
}

}  // namespace

void Bezier::growBox(Box& whole) const {
  constexpr int kDeepest = 30;
  const Box hull = box();
  double size = 0;
  for (int i = 0; i < 3; ++i) size = std::max(size, hull.high[i] - hull.low[i]);
  grow(*this, whole, 1e-9 * size, kDeepest);
}

double Bezier::bend() const {
  const AcGePoint3d a = first();
  const AcGeVector3d chord = last() - a;
  const double square = chord.dotProduct(chord);
  double greatest = 0;
  for (const Weighted& p : points) {
    const AcGeVector3d d = cartesian(p) - a;
    const double t = square > 0 ? std::clamp(d.dotProduct(chord) / square, 0.0, 1.0) : 0.0;
    greatest = std::max(greatest, (d - chord * t).length());
  }
  return greatest;
}

void Bezier::halve(Bezier& left, Bezier& right) const {
  const std::size_t n = points.size();
  left.points.resize(n);
  right.points = points;
  for (std::size_t k = 0; k < n; ++k) {
    left.points[k] = right.points[0];
    for (std::size_t i = 0; i + 1 < n - k; ++i) right.points[i] = mix(right.points[i], right.points[i + 1], 0.5);
  }
}

std::vector<Bezier> bezierPieces(const Nurbs& curve) {
  std::vector<Bezier> out;
  if (!makesSense(curve)) return out;
  try {
    Handle(Geom_BSplineCurve) spline = occtCurve(curve);
    spline->Segment(spline->FirstParameter(), spline->LastParameter());
    GeomConvert_BSplineCurveToBezierCurve cut(spline);
    TColStd_Array1OfReal knots(1, cut.NbArcs() + 1);
    cut.Knots(knots);
    for (int i = 1; i <= cut.NbArcs(); ++i) {
      const Handle(Geom_BezierCurve) arc = cut.Arc(i);
      Bezier piece;
      for (int k = 1; k <= arc->NbPoles(); ++k) {
        const gp_Pnt p = arc->Pole(k);
        const double w = arc->Weight(k);
        piece.points.push_back({w * p.X(), w * p.Y(), w * p.Z(), w});
      }
      piece.from = knots(i);
      piece.to = knots(i + 1);
      out.push_back(std::move(piece));
    }
  } catch (const Standard_Failure&) {
    out.clear();
  }
  return out;
}

std::vector<Bezier> bezierPieces(const AcGePoint3d& c, const AcGeVector3d& u, const AcGeVector3d& v, double from,
                                 double to) {
  const int count = std::max(1, static_cast<int>(std::ceil((to - from) / (std::numbers::pi / 2.1))));
  const double half = (to - from) / count / 2, w = std::cos(half);
  const auto weighted = [&](double t, double reach, double weight) {
    const AcGePoint3d p = c + u * (std::cos(t) * reach) + v * (std::sin(t) * reach);
    return Weighted{weight * p.x, weight * p.y, weight * p.z, weight};
  };
  std::vector<Bezier> out;
  for (int i = 0; i < count; ++i) {
    const double a = from + 2 * half * i, b = i + 1 == count ? to : a + 2 * half;
    out.push_back({{weighted(a, 1, 1), weighted(a + half, 1 / w, w), weighted(b, 1, 1)}, a, b});
  }
  return out;
}

}  // namespace atelier
